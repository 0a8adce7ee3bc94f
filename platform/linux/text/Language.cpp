#include "text/Language.h"

#include <cstdlib>
#include <mutex>
#include <string>

#include "core/LastError.h"
#include "handheld.h"
#include "text/WideText.h"

namespace handheld {

namespace {

constexpr char RUSSIAN[] = "RUS";
constexpr char ENGLISH[] = "ENU";

/// The first variable that is set and not empty decides, as for every Linux program.
const char* LanguageOfProcess() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == 0) {
      continue;
    }
    return std::string(value).starts_with("ru") ? RUSSIAN : ENGLISH;
  }
  return ENGLISH;
}

struct Language {
  std::mutex mutex;
  std::string abbreviation = LanguageOfProcess();
  bool isFailing = false;
};

Language& TheLanguage() {
  static Language& language = *new Language;
  return language;
}

}  // namespace

bool IsRussian() {
  Language& language = TheLanguage();
  const std::lock_guard lock(language.mutex);
  return SameName(language.abbreviation, RUSSIAN);
}

void SetLanguage(const char* abbreviation) {
  Language& language = TheLanguage();
  {
    const std::lock_guard lock(language.mutex);
    language.abbreviation = abbreviation == nullptr ? ENGLISH : abbreviation;
  }
  SetCodePage(IsRussian() ? 1251 : 1252);
}

void SetLocaleFailing(bool failing) {
  Language& language = TheLanguage();
  const std::lock_guard lock(language.mutex);
  language.isFailing = failing;
}

extern "C" int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR data, int size) {
  return Guarded<int>(0, [&] {
    if (locale != LOCALE_USER_DEFAULT || type != LOCALE_SABBREVLANGNAME || size < 0 ||
        (size > 0 && data == nullptr)) {
      return Fail(ERROR_INVALID_PARAMETER, 0);
    }

    Language& language = TheLanguage();
    const std::lock_guard lock(language.mutex);
    if (language.isFailing) {
      return Fail(ERROR_GEN_FAILURE, 0);
    }
    const std::u16string answer = WideFromUtf8(language.abbreviation);
    const int needed = static_cast<int>(answer.size()) + 1;
    if (size == 0) {
      return needed;
    }
    if (size < needed) {
      return Fail(ERROR_INSUFFICIENT_BUFFER, 0);
    }
    answer.copy(data, answer.size());
    data[answer.size()] = 0;
    return needed;
  });
}

}  // namespace handheld
