#include "outputs/LineOutput.h"

#include <ferolin.h>

#include <algorithm>
#include <array>
#include <string>

#include "base/DisplayText.h"

namespace host {

namespace {

constexpr std::chrono::seconds LONGEST_SILENCE(10);
constexpr std::array<std::size_t, 5> IN_LINE = {FEROLIN_SENSOR_GPS_STATUS,
                                                FEROLIN_SENSOR_CURRENT_TIME, FEROLIN_SENSOR_SPEED,
                                                FEROLIN_SENSOR_DISTANCE, FEROLIN_SENSOR_ELAPSED};

}  // namespace

bool LineOutput::IsDue(const Update& update) {
  const auto now = std::chrono::steady_clock::now();
  const int tenths = static_cast<int>(update.progress.value_or(0) * 10);
  const bool due = update.number == 1 || tenths > tenthsShown || now - lastShown >= LONGEST_SILENCE;
  if (due) {
    lastShown = now;
    tenthsShown = tenths;
  }
  return due;
}

void LineOutput::Show(const Update& update) {
  if (!IsDue(update)) {
    return;
  }
  std::string line;
  if (update.progress) {
    line = PadLeft(std::to_string(static_cast<int>(*update.progress * 100)), 3) + " %  ";
  }
  line += "update " + std::to_string(update.number);
  const Readouts readouts = shown.Make(update);
  for (const std::size_t sensor : IN_LINE) {
    if (sensor < readouts.size() && !readouts[sensor].value.empty()) {
      line += "  " + readouts[sensor].value;
    }
  }
  if (!update.notice.empty()) {
    line += "  " + update.notice;
  }
  output.Write(line + "\n");
}

void LineOutput::Finish(const Update& last, const Readouts&) {
  const Readouts readouts = shown.Make(last);
  std::size_t widest = 0;
  for (const Readout& each : readouts) {
    widest = std::max(widest, CountColumns(each.name));
  }
  std::string text = "\n";
  for (const Readout& each : readouts) {
    text += each.value.empty() ? each.name : PadRight(each.name, widest + 2) + each.value;
    text += '\n';
  }
  output.Write(text);
}

}  // namespace host
