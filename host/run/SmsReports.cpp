#include "run/SmsReports.h"

#include <array>
#include <charconv>

#include "base/HostError.h"
#include "handheld.h"

namespace host {

namespace {

constexpr int SECONDS_PER_MINUTE = 60;
constexpr int SECONDS_PER_DAY = 24 * 60 * 60;
/// A longer step means that the clock went back.
constexpr int LONGEST_STEP_SECONDS = SECONDS_PER_DAY / 2;

constexpr const char* DEFAULT_TEXT = "%Time% %Latitude% %Longitude% %Speed% km/h %GoogleMaps%";

void SetParameters(const EngineLibrary::Functions& engine, const Options& options,
                   Messages& messages) {
  const bool isChange = options.smsTo || options.smsText || options.smsEveryMinutes > 0;
  if (!isChange) {
    return;
  }
  const std::string to = options.smsTo.value_or(ReadText(engine.GetSMSAddress));
  std::string text = options.smsText.value_or(ReadText(engine.GetSMSText));
  if (text.empty()) {
    text = DEFAULT_TEXT;
  }
  if (options.smsEveryMinutes > 0 && to.empty()) {
    throw UsageError("--sms-every needs --sms-to: no recipient was given before");
  }
  engine.SetSMSParams(handheld::WideFromUtf8(to).c_str(), handheld::WideFromUtf8(text).c_str(),
                      options.smsEveryMinutes, NOT_AUTOMATIC, NOT_AUTOMATIC);
  if (options.smsEveryMinutes > 0 && engine.IsSMSExist() == 0) {
    messages.Say("no position reports are sent: there is no library for messages");
  }
}

}  // namespace

std::string ReadText(void(WINAPI* get)(char*, int)) {
  std::array<char, 2048> buffer = {};
  get(buffer.data(), static_cast<int>(buffer.size()));
  return handheld::Utf8FromAnsi(buffer.data());
}

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

SmsReports::SmsReports(const EngineLibrary& engine, const Options& options, Messages& messages)
    : engine(engine), intervalSeconds(options.smsEveryMinutes * SECONDS_PER_MINUTE) {
  SetParameters(engine(), options, messages);
}

void SmsReports::OnUpdate(const Update& update) {
  const Readouts& readouts = update.readouts;
  const bool hasPosition =
      readouts.size() == FEROLIN_SENSOR_COUNT && !readouts[FEROLIN_SENSOR_SPEED].value.empty();
  if (intervalSeconds == 0 || !hasPosition) {
    return;
  }
  const std::optional<int> now = ParseClock(readouts[FEROLIN_SENSOR_CURRENT_TIME].value);
  if (!now) {
    return;
  }
  const int passed = lastSecond ? (*now - *lastSecond + SECONDS_PER_DAY) % SECONDS_PER_DAY : 0;
  if (!lastSecond || passed > LONGEST_STEP_SECONDS) {
    lastSecond = now;
  } else if (passed >= intervalSeconds) {
    engine().SendSMS();
    ++sent;
    lastSecond = now;
  }
}

std::string SmsReports::Describe() const {
  if (intervalSeconds == 0 || engine().IsSMSExist() == 0) {
    return {};
  }
  return "position reports for " + ReadText(engine().GetSMSAddress) + ": " + std::to_string(sent);
}

}  // namespace host
