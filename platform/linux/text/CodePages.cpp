#include "text/CodePages.h"

#include <iconv.h>

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

CodePage::CodePage(const char* iconvName) {
  const iconv_t converter = iconv_open("UTF-16LE", iconvName);
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char byte = static_cast<char>(i);
    unsigned char unit[4] = {};
    char* from = &byte;
    char* to = reinterpret_cast<char*>(unit);
    std::size_t fromLeft = 1;
    std::size_t toLeft = sizeof(unit);
    const bool isAssigned = converter != reinterpret_cast<iconv_t>(-1) &&
                            iconv(converter, &from, &fromLeft, &to, &toLeft) == 0;
    wide[i] = static_cast<WCHAR>(isAssigned ? unit[0] | unit[1] << 8 : static_cast<int>(i));
    bytes.emplace(wide[i], static_cast<unsigned char>(i));
  }
  if (converter != reinterpret_cast<iconv_t>(-1)) {
    iconv_close(converter);
  }
}

const CodePage* CodePage::Find(UINT number) {
  static const CodePage& cyrillic = *new CodePage("CP1251");
  static const CodePage& western = *new CodePage("CP1252");
  switch (number == CP_ACP ? AnsiCodePage() : number) {
    case CYRILLIC:
      return &cyrillic;
    case WESTERN:
      return &western;
    default:
      return nullptr;
  }
}

int CodePage::Narrow(WCHAR unit) const {
  if (unit < 0x80) {
    return unit;
  }
  const auto found = bytes.find(unit);
  return found == bytes.end() ? -1 : found->second;
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
