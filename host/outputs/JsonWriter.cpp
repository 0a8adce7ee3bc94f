#include "outputs/JsonWriter.h"

#include "base/DisplayText.h"

namespace host {

namespace {

void AppendEscaped(std::string& json, unsigned char character) {
  constexpr std::string_view DIGITS = "0123456789abcdef";
  switch (character) {
    case '"':
      json += "\\\"";
      break;
    case '\\':
      json += "\\\\";
      break;
    case '\n':
      json += "\\n";
      break;
    case '\r':
      json += "\\r";
      break;
    case '\t':
      json += "\\t";
      break;
    default:
      json += "\\u00";
      json += DIGITS[character >> 4];
      json += DIGITS[character & 15];
      break;
  }
}

bool NeedsEscape(unsigned char character) {
  return character < 0x20 || character == '"' || character == '\\' || character == 0x7F;
}

std::string JsonObject(const Readouts& readouts) {
  std::string json = "{";
  for (const Readout& each : readouts) {
    if (json.size() > 1) {
      json += ',';
    }
    json += JsonString(each.name) + ':' + JsonString(each.value);
  }
  return json + '}';
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length == 0) {
      json += "\xEF\xBF\xBD";
      text.remove_prefix(1);
      continue;
    }
    if (NeedsEscape(static_cast<unsigned char>(text[0]))) {
      AppendEscaped(json, static_cast<unsigned char>(text[0]));
    } else {
      json += text.substr(0, length);
    }
    text.remove_prefix(length);
  }
  return json + '"';
}

std::string JsonUpdate(const Update& update) {
  return "{\"update\":" + std::to_string(update.number) +
         ",\"sensors\":" + JsonObject(update.readouts) + "}\n";
}

std::string JsonEnd(std::uint64_t updates, const Readouts& registry) {
  return R"({"end":true,"updates":)" + std::to_string(updates) + R"(,"registry":)" +
         JsonObject(registry) + "}\n";
}

}  // namespace host
