#include "run/SmsReports.h"

#include <charconv>

namespace host {

namespace {

constexpr int DAY = 24 * 60 * 60;
/// A clock that went back, not one that ran for so long.
constexpr int HALF_DAY = DAY / 2;

}  // namespace

std::optional<int> ParseClock(const std::string& text) {
  int seconds = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int part = 0; part < 3; ++part) {
    int number = 0;
    const auto result = std::from_chars(at, end, number);
    const bool isLast = part == 2;
    const bool fits = result.ec == std::errc() && number >= 0 &&
                      (isLast ? result.ptr == end : result.ptr != end && *result.ptr == ':');
    if (!fits) {
      return std::nullopt;
    }
    seconds = seconds * 60 + number;
    at = isLast ? end : result.ptr + 1;
  }
  return seconds;
}

void SmsReports::OnUpdate(const Update& update) {
  if (everySeconds == 0 || update.readouts.size() <= SPEED ||
      update.readouts[SPEED].value.empty()) {
    return;
  }
  const std::optional<int> now = ParseClock(update.readouts[CURRENT_TIME].value);
  if (!now) {
    return;
  }
  const int passed = lastSecond ? (*now - *lastSecond + DAY) % DAY : 0;
  if (!lastSecond || passed > HALF_DAY) {
    lastSecond = now;
  } else if (passed >= everySeconds) {
    engine().SendSMS();
    ++sent;
    lastSecond = now;
  }
}

}  // namespace host
