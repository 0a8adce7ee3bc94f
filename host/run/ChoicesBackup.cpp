#include "run/ChoicesBackup.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "base/HostError.h"
#include "base/SafeFile.h"
#include "handheld.h"
#include "run/SmsReports.h"

namespace host {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* CHOICES_FILE = "unsaved-choices.json";

// Keys of the file.
constexpr const char* HOST = "host";
constexpr const char* APPLICATION = "application";
constexpr const char* LIMITS = "limits";
constexpr const char* BEEP_ON_ZERO = "beepOnZero";
constexpr const char* SMS_TO = "smsTo";
constexpr const char* SMS_TEXT = "smsText";

/// The host's keys in the settings file.
constexpr std::array HOST_KEYS = {"Device", "Baud",   "Gpsd", "KmlFolder", "WriteTrack",
                                  "View",   "Mirror", "Flip", "Rotate",    "Invert"};
/// Those of the window's pages.
constexpr std::array APPLICATION_KEYS = {"KeepScreenOn", "LightTheme", "Theme"};
constexpr const char* APPLICATION_SECTION = "Application";

std::string PathIn(const std::string& home) {
  return home + "/" + CHOICES_FILE;
}

Json DescribeLimits(const EngineLibrary::Functions& engine) {
  Json limits = Json::array();
  for (int i = 0; i < engine.GetSpeedEventsCount(); ++i) {
    limits.push_back(
        {engine.GetEventSpeedLimit(i), engine.GetEventSpeedInter(i), engine.GetUseEventSound(i)});
  }
  return limits;
}

void Apply(const Json& choices, const EngineLibrary& library, const Settings& settings) {
  const EngineLibrary::Functions& engine = library();
  for (const auto& [key, value] : choices.at(HOST).items()) {
    settings.Set(key, value.get<std::string>());
  }
  const Settings application(library, APPLICATION_SECTION);
  const Json pages = choices.value(APPLICATION, Json::object());  // items() refers to it
  for (const auto& [key, value] : pages.items()) {
    application.Set(key, value.get<std::string>());
  }
  int event = 0;
  for (const Json& limit : choices.at(LIMITS)) {
    engine.SetSpeedEvent(event++, limit.at(0), limit.at(1), limit.at(2));
  }
  engine.SetBeepOnZero(choices.at(BEEP_ON_ZERO));
  engine.SetSMSParams(handheld::WideFromUtf8(choices.at(SMS_TO)).c_str(),
                      handheld::WideFromUtf8(choices.at(SMS_TEXT)).c_str(), engine.GetSMSInterval(),
                      NOT_AUTOMATIC, NOT_AUTOMATIC);
}

}  // namespace

ChoicesBackup::ChoicesBackup(const EngineLibrary& engine, const Settings& settings,
                             const HomeFolder& home, Messages& messages)
    : engine(engine),
      settings(settings),
      path(PathIn(home.GetPath())),
      isWritable(home.IsWritable()),
      messages(messages),
      kept(Describe()) {
  Recover();
}

void ChoicesBackup::Recover() {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    return;
  }
  std::ifstream file(path);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  try {
    Apply(Json::parse(text), engine, settings);
    messages.Say("what was chosen in the last run, which ended without warning, is kept");
  } catch (const nlohmann::json::exception&) {
    messages.Say("left out " + path + ": it is damaged");
  }
}

void ChoicesBackup::Update() {
  if (!isWritable) {
    return;
  }
  std::string choices = Describe();
  if (choices == kept) {
    return;
  }
  kept = std::move(choices);
  try {
    ReplaceFile(path, kept);
  } catch (const HostError& error) {
    if (!hasFailed) {
      messages.Say(std::string("a power cut would lose what was chosen: ") + error.what());
    }
    hasFailed = true;
  }
}

void ChoicesBackup::Remove(const std::string& home) {
  std::error_code error;
  std::filesystem::remove(PathIn(home), error);
}

std::string ChoicesBackup::Describe() const {
  constexpr int INDENT = 1;
  constexpr bool AS_UTF8 = false;
  Json choices = Json::object();
  for (const char* key : HOST_KEYS) {
    choices[HOST][key] = settings.Get(key);
  }
  const Settings application(engine, APPLICATION_SECTION);
  for (const char* key : APPLICATION_KEYS) {
    choices[APPLICATION][key] = application.Get(key);
  }
  choices[LIMITS] = DescribeLimits(engine());
  choices[BEEP_ON_ZERO] = engine().GetBeepOnZero();
  choices[SMS_TO] = ReadText(engine().GetSMSAddress);
  choices[SMS_TEXT] = ReadText(engine().GetSMSText);
  return choices.dump(INDENT, ' ', AS_UTF8, Json::error_handler_t::replace) + "\n";
}

}  // namespace host
