#include "outputs/ProgressLine.h"

#include "outputs/TerminalTable.h"

namespace host {

namespace {

constexpr std::size_t BAR_COLUMNS = 48;
constexpr std::chrono::milliseconds SHOW_INTERVAL(200);

}  // namespace

void ProgressLine::Show(const Update& update) {
  const auto now = std::chrono::steady_clock::now();
  if (update.timeLeft.empty() || now < nextShow) {
    return;
  }
  nextShow = now + SHOW_INTERVAL;
  messages.ShowStatus(TerminalTable::Bar(*update.progress, BAR_COLUMNS) + "  " + update.timeLeft);
}

}  // namespace host
