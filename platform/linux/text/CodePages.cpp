#include "text/CodePages.h"

#include <algorithm>
#include <atomic>

#include "core/LastError.h"
#include "handheld.h"
#include "text/Language.h"
#include "text/WideText.h"

namespace handheld {

namespace {

constexpr UINT CYRILLIC = 1251;
constexpr UINT WESTERN = 1252;

// What the bytes from 0x80 stand for, as far as it follows no rule.

constexpr std::array<WCHAR, 64> CYRILLIC_SPECIAL = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409,
    0x2039, 0x040A, 0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0,
    0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB,
    0x00AC, 0x00AD, 0x00AE, 0x0407, 0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6,
    0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457,
};
constexpr WCHAR CYRILLIC_CAPITAL_A = 0x0410;

constexpr std::array<WCHAR, 32> WESTERN_SPECIAL = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr CodePage::UpperHalf MakeCyrillic() {
  CodePage::UpperHalf upper = {};
  for (std::size_t i = 0; i < upper.size(); ++i) {
    upper[i] = i < CYRILLIC_SPECIAL.size()
                   ? CYRILLIC_SPECIAL[i]
                   : static_cast<WCHAR>(CYRILLIC_CAPITAL_A + (i - CYRILLIC_SPECIAL.size()));
  }
  return upper;
}

constexpr CodePage::UpperHalf MakeWestern() {
  CodePage::UpperHalf upper = {};
  for (std::size_t i = 0; i < upper.size(); ++i) {
    upper[i] = i < WESTERN_SPECIAL.size() ? WESTERN_SPECIAL[i] : static_cast<WCHAR>(0x80 + i);
  }
  return upper;
}

constexpr CodePage CYRILLIC_PAGE(MakeCyrillic());
constexpr CodePage WESTERN_PAGE(MakeWestern());

/// 0 until set: the language decides.
std::atomic<UINT> chosenCodePage{0};

/// Length of a text; -1 means up to and including its terminator.
template <typename Unit>
int TextLength(const Unit* text, int length) {
  return length >= 0 ? length : static_cast<int>(std::char_traits<Unit>::length(text)) + 1;
}

bool IsCallValid(const void* from, int length, const void* to, int size) {
  return from != nullptr && length >= -1 && length != 0 && size >= 0 &&
         (size == 0 || (to != nullptr && to != from));
}

/// Result of both conversions: the length, also for a size of 0, which only asks for it; 0 with the
/// last error set when the text did not fit.
int Converted(int length, int size) {
  if (size == 0 || length <= size) {
    return length;
  }
  return Fail(ERROR_INSUFFICIENT_BUFFER, 0);
}

}  // namespace

const CodePage* CodePage::Find(UINT number) {
  switch (number == CP_ACP ? AnsiCodePage() : number) {
    case CYRILLIC:
      return &CYRILLIC_PAGE;
    case WESTERN:
      return &WESTERN_PAGE;
    default:
      return nullptr;
  }
}

int CodePage::Narrow(WCHAR unit) const {
  if (unit < FIRST_UPPER) {
    return unit;
  }
  const auto found = std::find(upper.begin(), upper.end(), unit);
  return found == upper.end() ? -1 : static_cast<int>(FIRST_UPPER + (found - upper.begin()));
}

UINT AnsiCodePage() {
  const UINT chosen = chosenCodePage.load();
  if (chosen != 0) {
    return chosen;
  }
  return IsRussian() ? CYRILLIC : WESTERN;
}

void SetCodePage(UINT codePage) {
  if (codePage == CYRILLIC || codePage == WESTERN) {
    chosenCodePage.store(codePage);
  }
}

std::string Utf8FromAnsi(const std::string& ansi) {
  const bool isAscii = std::none_of(ansi.begin(), ansi.end(), [](char byte) {
    return static_cast<unsigned char>(byte) >= CodePage::FIRST_UPPER;
  });
  if (isAscii) {
    return ansi;
  }
  const CodePage& page = *CodePage::Find(CP_ACP);
  std::u16string wide;
  for (const char byte : ansi) {
    wide += page.Widen(byte);
  }
  return Utf8FromWide(wide);
}

std::string AnsiFromUtf8(const std::string& utf8) {
  const CodePage& page = *CodePage::Find(CP_ACP);
  std::string ansi;
  for (const WCHAR unit : WideFromUtf8(utf8)) {
    // The second half of a surrogate pair: the pair becomes one question mark.
    if (unit >= 0xDC00 && unit <= 0xDFFF) {
      continue;
    }
    const int byte = page.Narrow(unit);
    ansi += byte < 0 ? '?' : static_cast<char>(byte);
  }
  return ansi;
}

extern "C" {

int WINAPI MultiByteToWideChar(UINT codePage, DWORD, LPCSTR text, int length, LPWSTR wide,
                               int wideSize) {
  return Guarded<int>(0, [&] {
    const CodePage* page = CodePage::Find(codePage);
    if (page == nullptr || !IsCallValid(text, length, wide, wideSize)) {
      return Fail(ERROR_INVALID_PARAMETER, 0);
    }
    const int count = TextLength(text, length);
    std::transform(text, text + std::min(count, wideSize), wide,
                   [page](char byte) { return page->Widen(byte); });
    return Converted(count, wideSize);
  });
}

int WINAPI WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR wide, int wideLength, LPSTR text,
                               int size, LPCSTR defaultChar, BOOL* usedDefaultChar) {
  return Guarded<int>(0, [&] {
    const CodePage* page = CodePage::Find(codePage);
    if (page == nullptr || !IsCallValid(wide, wideLength, text, size)) {
      return Fail(ERROR_INVALID_PARAMETER, 0);
    }
    const int count = TextLength(wide, wideLength);
    const char replacement = defaultChar == nullptr ? '?' : *defaultChar;
    bool replaced = false;
    for (int i = 0; i < count && (size == 0 || i < size); ++i) {
      const int byte = page->Narrow(wide[i]);
      replaced |= byte < 0;
      if (size > 0) {
        text[i] = byte < 0 ? replacement : static_cast<char>(byte);
      }
    }
    if (usedDefaultChar != nullptr) {
      *usedDefaultChar = replaced ? TRUE : FALSE;
    }
    return Converted(count, size);
  });
}

}  // extern "C"

}  // namespace handheld
