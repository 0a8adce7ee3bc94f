#include "run/RunSummary.h"

#include <ferolin.h>

#include <string>
#include <utility>
#include <vector>

#include "handheld.h"

namespace host {

namespace {

std::string FindReason(const Options& options, std::uint64_t updates) {
  if (updates > 0) {
    return "the receiver had none";
  }
  return options.raw ? "with --raw the engine needs $GPRMC sentences that end in CR LF"
                     : "the engine needs RMC sentences, and there are none";
}

}  // namespace

RunSummary::RunSummary(const Options& options, const PositionSource& source,
                       const SmsReports& reports, Messages& messages)
    : options(options),
      source(source),
      reports(reports),
      messages(messages),
      receptionNotices(DescribeSource(options)) {}

void RunSummary::Start() {
  start = std::chrono::steady_clock::now();
}

void RunSummary::OnUpdate(const Update& update) {
  // There is a speed exactly while there is a fix.
  hadPosition = hadPosition || !update.readouts[FEROLIN_SENSOR_SPEED].value.empty();
  sounds.Collect();
  SayNews();
}

void RunSummary::Finish(std::uint64_t updates, bool hasEnded) {
  SayDuration(updates);
  SayNews();
  for (const std::string& sum : BridgeNotices::SumUp(source.GetReport())) {
    messages.Say(sum);
  }
  if (source.GetLog() != nullptr && source.GetLog()->CountLost() > 0) {
    messages.SayLoss("bytes that were not recorded: " +
                     std::to_string(source.GetLog()->CountLost()));
  }
  if (options.source == Options::Source::FILE && hasEnded && !hadPosition) {
    messages.SayLoss("no position was found: " + FindReason(options, updates));
  }
  if (const std::string played = sounds.Describe(); !played.empty()) {
    messages.Say("sounds played: " + played);
  }
  if (const std::string sent = reports.Describe(); !sent.empty()) {
    messages.Say(sent);
  }
}

void RunSummary::SayNews() {
  const PositionFeed::Report report = source.GetReport();
  for (const std::string& news : notices.TakeNews(report)) {
    messages.Say(news);
  }
  for (const std::string& news : receptionNotices.TakeNews(report.reception)) {
    messages.Say(news);
  }
  SayUnreadableFiles();
  SayRecordProblem();
}

void RunSummary::SayRecordProblem() {
  SentenceLog* const log = source.GetLog();
  if (log == nullptr) {
    return;
  }
  if (const std::optional<std::string> problem = log->TakeProblem()) {
    messages.Say(*problem);
  }
}

/// Views and warnings do without them.
void RunSummary::SayUnreadableFiles() {
  const std::vector<std::string> files = handheld::UnreadableFiles();
  for (; unreadableFilesSaid < files.size(); ++unreadableFilesSaid) {
    messages.Say(files[unreadableFilesSaid] + " is missing or damaged");
  }
  if (handheld::LacksFonts() && !std::exchange(isLackOfFontsSaid, true)) {
    messages.Say(
        "no fonts are installed: the views lack their texts (the package fonts-liberation has "
        "some)");
  }
}

void RunSummary::SayDuration(std::uint64_t updates) {
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
  const auto tenths = static_cast<long long>(passed.count() * 10);
  messages.Say(std::to_string(updates) + (updates == 1 ? " update in " : " updates in ") +
               std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s from " +
               DescribeSource(options));
}

}  // namespace host
