#include "run/DriveKeeping.h"

#include "base/HostError.h"
#include "drives/DriveTexts.h"

namespace host {

namespace {

constexpr std::chrono::seconds ADVANCE_INTERVAL(1);

/// What became of the drive; without one, some positions were lost.
std::string DescribeResult(const std::optional<Drive>& drive, std::uint64_t lost, Units units) {
  const std::string missing =
      lost == 1 ? "position could not be written" : "positions could not be written";
  if (!drive) {
    return "this drive is not kept: " + std::to_string(lost) + " " + missing;
  }
  const std::string kept = DescribeDistance(drive->distanceKm, units) + " in " +
                           DescribeDuration(drive->endMs - drive->startMs);
  const std::string number = "kept as drive " + std::to_string(drive->number);
  return lost == 0 ? number + ": " + kept
                   : number + ", but not whole: " + kept + "; " + std::to_string(lost) + " more " +
                         missing;
}

}  // namespace

DriveKeeping::DriveKeeping(const Options& options, const HomeFolder& home, Messages& messages)
    : options(options), messages(messages) {
  if ((!IsLive(options.source) && !options.keep) || !home.IsWritable()) {
    return;
  }
  try {
    OpenOrReplace(home.GetPath());
  } catch (const HostError& error) {
    messages.SayLoss(std::string("this drive is not kept: ") + error.what());
  }
}

/// A damaged database is put aside: the drives to come are worth more than an attempt to mend it.
void DriveKeeping::OpenOrReplace(const std::string& home) {
  try {
    Open(home);
  } catch (const DamagedDatabase& damage) {
    const std::string aside = DriveStore::PutAside(home);
    messages.SayLoss(std::string(damage.what()) + "; it is called " + aside +
                     " now, and a new one is made for this drive");
    Open(home);
  }
}

void DriveKeeping::Open(const std::string& home) {
  auto store = std::make_unique<DriveStore>(home, Database::Missing::CREATE);
  for (const std::string& name : Trips::NamesOf(options)) {
    if (std::optional<KeptTrip> kept = store->GetTrip(name)) {
      keptTrips.push_back(*std::move(kept));
    }
  }
  recorder = std::make_unique<DriveRecorder>(std::move(store), DescribeSource(options));
  for (const Drive& drive : recorder->GetEndedDrives()) {
    messages.Say("the drive of " + DescribeDay(drive.startMs) + ", " +
                 DescribeDistance(drive.distanceKm, options.units) + ", ended without warning at " +
                 DescribeClock(drive.endMs) + ", or the disk took no more then; kept");
  }
}

void DriveKeeping::Start(PositionSource& source) {
  if (recorder) {
    source.TellFixes([this](const Fix& fix) { recorder->Take(fix); });
  }
}

void DriveKeeping::OnUpdate(Trips& trips) {
  const auto now = std::chrono::steady_clock::now();
  if (now >= nextAdvance) {
    nextAdvance = now + ADVANCE_INTERVAL;
    trips.Advance();
    if (recorder) {
      recorder->TakeTrips(trips.Get());
    }
  }
  if (recorder) {
    SayNews();
  }
}

void DriveKeeping::SayNews() {
  for (const std::string& news : recorder->TakeNews()) {
    messages.Say(news);
  }
}

void DriveKeeping::Finish(Trips& trips) {
  trips.Advance();
  if (!recorder) {
    return;
  }
  recorder->TakeTrips(trips.Get());
  recorder->Finish();
  SayNews();
  const std::optional<Drive> drive = recorder->GetDrive();
  const std::uint64_t lost = recorder->CountLost();
  if (lost > 0) {
    messages.SayLoss(DescribeResult(drive, lost, options.units));
  } else if (drive) {
    messages.Say(DescribeResult(drive, lost, options.units));
  }
}

}  // namespace host
