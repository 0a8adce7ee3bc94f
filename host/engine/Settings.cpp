#include "engine/Settings.h"

#include <charconv>
#include <vector>

#include "handheld.h"

namespace host {

namespace {

constexpr std::string_view HEX_DIGITS = "0123456789ABCDEF";

/// The longest path has 4095 bytes, of which each becomes three at most.
constexpr int MAX_VALUE = 16 * 1024;

/// Whether the file holds the character as it is. A "[" would begin a section, and blanks at the
/// end of a line are cut.
bool IsPlain(char character) {
  return character > ' ' && character <= '~' && character != '[' && character != '%';
}

/// Every other character as "%20".
std::string Escape(const std::string& value) {
  std::string escaped;
  for (const char character : value) {
    if (IsPlain(character)) {
      escaped += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      escaped += {'%', HEX_DIGITS[byte / 16], HEX_DIGITS[byte % 16]};
    }
  }
  return escaped;
}

/// Leaves a "%" alone that two hexadecimal digits do not follow.
std::string Unescape(const std::string& escaped) {
  std::string value;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    const char* const digits = escaped.data() + i + 1;
    unsigned char byte = 0;
    if (escaped[i] == '%' && i + 2 < escaped.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      value += static_cast<char>(byte);
      i += 2;
    } else {
      value += escaped[i];
    }
  }
  return value;
}

}  // namespace

Settings::Settings(const EngineLibrary& engine, const std::string& section)
    : engine(engine), section(handheld::WideFromUtf8(section)) {}

std::string Settings::Get(const std::string& key) const {
  std::vector<char> buffer(MAX_VALUE);
  engine().GetIniFileValue(buffer.data(), MAX_VALUE, section.c_str(),
                           handheld::WideFromUtf8(key).c_str(), TEXT(""));
  return Unescape(handheld::Utf8FromAnsi(buffer.data()));
}

void Settings::Set(const std::string& key, const std::string& value) const {
  engine().SetIniFileValue(section.c_str(), handheld::WideFromUtf8(key).c_str(),
                           handheld::WideFromUtf8(Escape(value)).c_str(), TEXT(""));
}

}  // namespace host
