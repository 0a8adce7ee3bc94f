#include "sources/NmeaSentence.h"

#include <algorithm>
#include <charconv>

namespace host {

namespace {

constexpr std::size_t TYPE_LENGTH = 3;

NmeaSentence::Checksum Compare(std::string_view body, std::string_view digits) {
  digits = digits.substr(0, 2);
  unsigned value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  const bool isNumber =
      digits.size() == 2 && result.ec == std::errc() && result.ptr == digits.data() + 2;
  return isNumber && value == NmeaChecksum(body) ? NmeaSentence::Checksum::RIGHT
                                                 : NmeaSentence::Checksum::WRONG;
}

}  // namespace

std::uint8_t NmeaChecksum(std::string_view body) {
  std::uint8_t sum = 0;
  for (const char character : body) {
    sum = static_cast<std::uint8_t>(sum ^ static_cast<unsigned char>(character));
  }
  return sum;
}

NmeaSentence::NmeaSentence(std::string_view text) {
  std::string_view body = text.substr(1);
  if (const std::size_t star = body.find('*'); star != std::string_view::npos) {
    checksum = Compare(body.substr(0, star), body.substr(star + 1));
    body = body.substr(0, star);
  }
  std::size_t comma = body.find(',');
  name = body.substr(0, comma);
  fields.reserve(static_cast<std::size_t>(std::count(body.begin(), body.end(), ',')));
  while (comma != std::string_view::npos) {
    body.remove_prefix(comma + 1);
    comma = body.find(',');
    fields.emplace_back(body.substr(0, comma));
  }
}

std::string NmeaSentence::GetText() const {
  std::string text = "$" + name;
  for (const std::string& field : fields) {
    text += ',';
    text += field;
  }
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  const std::uint8_t sum = NmeaChecksum(std::string_view(text).substr(1));
  text += '*';
  text += DIGITS[sum >> 4];
  text += DIGITS[sum & 15];
  return text;
}

std::string_view NmeaSentence::GetType() const {
  const std::string_view all = name;
  return all.substr(all.size() - std::min(TYPE_LENGTH, all.size()));
}

std::string_view NmeaSentence::GetTalker() const {
  const std::string_view all = name;
  return all.substr(0, all.size() - std::min(TYPE_LENGTH, all.size()));
}

std::string_view Field(const NmeaSentence& sentence, std::size_t index) {
  return index < sentence.fields.size() ? std::string_view(sentence.fields[index])
                                        : std::string_view();
}

}  // namespace host
