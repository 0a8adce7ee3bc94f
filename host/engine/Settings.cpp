#include "engine/Settings.h"

#include <algorithm>
#include <array>

#include "handheld.h"

namespace host {

namespace {

bool CanHold(const std::string& value) {
  const bool isPlain = std::none_of(value.begin(), value.end(), [](char character) {
    return character == '[' || (character >= 0 && character < ' ');
  });
  return isPlain && handheld::Utf8FromAnsi(handheld::AnsiFromUtf8(value)) == value;
}

}  // namespace

Settings::Settings(const EngineLibrary& engine, const std::string& section)
    : engine(engine), section(handheld::WideFromUtf8(section)) {}

std::string Settings::Get(const std::string& key) const {
  std::array<char, 2048> buffer = {};
  engine().GetIniFileValue(buffer.data(), static_cast<int>(buffer.size()), section.c_str(),
                           handheld::WideFromUtf8(key).c_str(), TEXT(""));
  return handheld::Utf8FromAnsi(buffer.data());
}

void Settings::Set(const std::string& key, const std::string& value) const {
  const std::string held = CanHold(value) ? value : std::string();
  engine().SetIniFileValue(section.c_str(), handheld::WideFromUtf8(key).c_str(),
                           handheld::WideFromUtf8(held).c_str(), TEXT(""));
}

}  // namespace host
