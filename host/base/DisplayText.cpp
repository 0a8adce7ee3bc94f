#include "base/DisplayText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace host {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

constexpr std::array<Range, 4> COMBINING = {{
    {0x0300, 0x036F},
    {0x0483, 0x0489},
    {0x200B, 0x200F},
    {0x20D0, 0x20F0},
}};

constexpr std::array<Range, 8> WIDE = {{
    {0x1100, 0x115F},
    {0x2E80, 0x303E},
    {0x3041, 0xA4CF},
    {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60},
    {0x1F300, 0x1FAFF},
}};

template <std::size_t N>
bool Contains(const std::array<Range, N>& ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [character](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

/// Multibyte characters with these lead bytes. The limits of the second byte exclude overlong
/// forms, surrogates, and code points beyond U+10FFFF.
struct Form {
  unsigned char firstLead;
  unsigned char lastLead;
  unsigned char lowestSecond;
  unsigned char highestSecond;
  std::size_t length;
};

constexpr std::array<Form, 8> FORMS = {{
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Removes the first character from `text` and returns it; U+FFFD for a byte that is not UTF-8.
char32_t TakeCharacter(std::string_view& text) {
  const std::size_t length = Utf8Length(text);
  if (length == 0) {
    text.remove_prefix(1);
    return 0xFFFD;
  }
  constexpr std::array<unsigned char, 5> LEAD_BITS = {0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t character = static_cast<unsigned char>(text[0]) & LEAD_BITS[length];
  for (std::size_t i = 1; i < length; ++i) {
    character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
  }
  text.remove_prefix(length);
  return character;
}

std::size_t ColumnsOf(char32_t character) {
  if (Contains(COMBINING, character)) {
    return 0;
  }
  return Contains(WIDE, character) ? 2 : 1;
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) {
    return 1;
  }
  const auto* form = std::find_if(FORMS.begin(), FORMS.end(), [lead](const Form& each) {
    return lead >= each.firstLead && lead <= each.lastLead;
  });
  if (form == FORMS.end() || text.size() < form->length) {
    return 0;
  }
  const auto second = static_cast<unsigned char>(text[1]);
  if (second < form->lowestSecond || second > form->highestSecond) {
    return 0;
  }
  const std::string_view tail = text.substr(1, form->length - 1);
  return std::all_of(tail.begin(), tail.end(), IsContinuation) ? form->length : 0;
}

std::size_t CountColumns(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) {
    columns += ColumnsOf(TakeCharacter(text));
  }
  return columns;
}

std::string CutToColumns(std::string_view text, std::size_t columns) {
  if (CountColumns(text) <= columns) {
    return std::string(text);
  }
  if (columns == 0) {
    return {};
  }
  std::size_t used = 0;
  std::string_view rest = text;
  while (true) {
    std::string_view next = rest;
    const std::size_t width = ColumnsOf(TakeCharacter(next));
    if (used + width > columns - 1) {
      return std::string(text.substr(0, text.size() - rest.size())) + "…";
    }
    used += width;
    rest = next;
  }
}

std::string PadRight(std::string_view text, std::size_t columns) {
  std::string result = CutToColumns(text, columns);
  return result.append(columns - CountColumns(result), ' ');
}

std::string PadLeft(std::string_view text, std::size_t columns) {
  const std::string cut = CutToColumns(text, columns);
  return std::string(columns - CountColumns(cut), ' ') + cut;
}

}  // namespace host
