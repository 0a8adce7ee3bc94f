#include "drives/XmlText.h"

#include "base/DisplayText.h"

namespace host {

namespace {

// These are valid UTF-8.
constexpr std::string_view U_FFFE = "\xEF\xBF\xBE";
constexpr std::string_view U_FFFF = "\xEF\xBF\xBF";

/// `character` is one character in UTF-8, or empty for a byte that is none.
std::string Escape(std::string_view character) {
  const bool isControl = character.size() == 1 && static_cast<unsigned char>(character[0]) < ' ';
  const bool isNone = character.empty() || character == U_FFFE || character == U_FFFF;
  if (isControl || isNone) {
    return "?";
  }
  switch (character[0]) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      return std::string(character);
  }
}

}  // namespace

std::string XmlText(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    escaped += Escape(text.substr(0, length));
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return escaped;
}

}  // namespace host
