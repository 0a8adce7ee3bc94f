#include "text/WideText.h"

#include <clocale>
#include <cwctype>

#include "handheld.h"

namespace handheld {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | (code >> 18));
    text += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

void AppendWide(std::u16string& wide, char32_t code) {
  if (code < 0x10000) {
    wide += static_cast<char16_t>(code);
  } else {
    wide += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    wide += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
  }
}

/// Content of a lead byte: number of following bytes, its payload, and the smallest code that needs
/// that many.
struct Lead {
  int following;
  char32_t bits;
  char32_t smallest;
};

Lead ReadLead(unsigned char byte) {
  if (byte < 0x80) {
    return {0, byte, 0};
  }
  if ((byte & 0xE0) == 0xC0) {
    return {1, byte & 0x1FU, 0x80};
  }
  if ((byte & 0xF0) == 0xE0) {
    return {2, byte & 0x0FU, 0x800};
  }
  if ((byte & 0xF8) == 0xF0) {
    return {3, byte & 0x07U, 0x10000};
  }
  return {0, REPLACEMENT, 0};
}

/// Reads one character at `position` and moves past it; a malformed byte counts as one U+FFFD.
char32_t NextCharacter(const std::string& utf8, std::size_t& position) {
  const std::size_t start = position++;
  const Lead lead = ReadLead(static_cast<unsigned char>(utf8[start]));
  char32_t code = lead.bits;
  for (int i = 1; i <= lead.following; ++i) {
    if (start + i >= utf8.size()) {
      return REPLACEMENT;
    }
    const auto byte = static_cast<unsigned char>(utf8[start + i]);
    if ((byte & 0xC0) != 0x80) {
      return REPLACEMENT;
    }
    code = (code << 6) | (byte & 0x3FU);
  }
  if (code < lead.smallest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
    return REPLACEMENT;
  }
  position = start + 1 + static_cast<std::size_t>(lead.following);
  return code;
}

/// Unlike the plain "C" locale, "C.UTF-8" knows the letters of all alphabets.
locale_t LetterLocale() {
  static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
}

}  // namespace

std::u16string FoldCase(std::u16string_view text) {
  std::u16string folded(text);
  const locale_t letters = LetterLocale();
  for (char16_t& unit : folded) {
    if (unit < 0x80) {
      unit = unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    } else if (letters != nullptr) {
      unit = static_cast<char16_t>(towlower_l(unit, letters));
    }
  }
  return folded;
}

std::size_t WideLength(LPCWSTR text) {
  return text == nullptr ? 0 : std::char_traits<char16_t>::length(text);
}

std::u16string WideText(LPCWSTR text) {
  return text == nullptr ? std::u16string() : std::u16string(text);
}

bool SameName(const std::string& left, const std::string& right) {
  return left == right || FoldCase(WideFromUtf8(left)) == FoldCase(WideFromUtf8(right));
}

std::u16string WideFromUtf8(const std::string& utf8) {
  std::u16string wide;
  wide.reserve(utf8.size());
  for (std::size_t position = 0; position < utf8.size();) {
    AppendWide(wide, NextCharacter(utf8, position));
  }
  return wide;
}

std::string Utf8FromWide(const std::u16string& wide) {
  std::string text;
  text.reserve(wide.size());
  for (std::size_t i = 0; i < wide.size(); ++i) {
    const char16_t unit = wide[i];
    if (IsHighSurrogate(unit) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1])) {
      AppendUtf8(text, 0x10000 + ((unit - 0xD800U) << 10) + (wide[++i] - 0xDC00U));
    } else {
      AppendUtf8(text, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? REPLACEMENT : unit);
    }
  }
  return text;
}

}  // namespace handheld
