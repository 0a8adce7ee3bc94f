#include "run/DriveKeeping.h"

#include "base/HostError.h"
#include "drives/DriveTexts.h"

namespace host {

namespace {

constexpr std::chrono::seconds TRIP_INTERVAL(1);

}  // namespace

DriveKeeping::DriveKeeping(const Options& options, const std::string& home, Messages& messages)
    : options(options), messages(messages) {
  if (!IsLive(options.source) && !options.keep) {
    return;
  }
  try {
    Open(home);
  } catch (const HostError& error) {
    messages.SayLoss(std::string("this drive is not kept: ") + error.what());
  }
}

void DriveKeeping::Open(const std::string& home) {
  auto store = std::make_unique<DriveStore>(home, Database::Missing::CREATE);
  keptTrip = store->GetTrip(Trip::NameOf(options.source));
  recorder = std::make_unique<DriveRecorder>(std::move(store), DescribeSource(options));
  for (const Drive& drive : recorder->GetEndedDrives()) {
    messages.Say("the drive of " + DescribeDay(drive.startMs) + ", " +
                 DescribeDistance(drive.distanceKm) + ", ended without warning at " +
                 DescribeClock(drive.endMs) + "; kept");
  }
}

void DriveKeeping::Start(PositionSource& source) {
  if (!recorder) {
    return;
  }
  if (!source.TellFixes([this](const Fix& fix) { recorder->Take(fix); })) {
    messages.Say("this drive is not kept: the receiver's sentences do not pass through here");
    recorder.reset();
  }
}

void DriveKeeping::OnUpdate(const Trip& trip) {
  if (!recorder) {
    return;
  }
  const auto now = std::chrono::steady_clock::now();
  if (now >= nextTrip) {
    nextTrip = now + TRIP_INTERVAL;
    recorder->TakeTrip(trip.GetStates());
  }
  SayProblem();
}

void DriveKeeping::SayProblem() {
  if (const std::optional<std::string> problem = recorder->TakeProblem()) {
    messages.Say("this drive cannot be kept at present: " + *problem);
  }
}

void DriveKeeping::Finish(const Trip& trip) {
  if (!recorder) {
    return;
  }
  recorder->TakeTrip(trip.GetStates());
  recorder->Finish();
  SayProblem();
  if (const std::uint64_t lost = recorder->CountLost(); lost > 0) {
    messages.SayLoss("positions of this drive that were not kept: " + std::to_string(lost));
  }
  if (const std::optional<Drive> drive = recorder->GetDrive()) {
    messages.Say("kept as drive " + std::to_string(drive->number) + ": " +
                 DescribeDistance(drive->distanceKm) + " in " +
                 DescribeDuration(drive->endMs - drive->startMs));
  }
}

}  // namespace host
