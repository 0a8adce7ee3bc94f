#include "sensors/LocalizedText.h"

#include <windows.h>

#include <array>

#include "base/Cp1251.h"
#include "base/SharedWord.h"

namespace ferolin {

namespace {

struct LocalizedWord {
  const char* english;
  Cp1251Text russian;
};

constexpr std::array<LocalizedWord, static_cast<std::size_t>(Word::COUNT)> WORDS = {{
    {"charging", u"заряжается"},
    {"Battery status", u"Зарядка батареи"},
    {"Speed chart", u"График скорости"},
    {"Speedometer", u"Спидометр"},
    {"Sattelites", u"Спутники"},
    {"Azimuth", u"Азимут"},
    {"Current time", u"Текущее время"},
    {"Longitude", u"Долгота"},
    {"Latitude", u"Широта"},
    {"Sattelites used", u"Количество спутников"},
    {"Altitude", u"Высота"},
    {"No signal", u"Нет сигнала"},
    {"GPS status", u"Статус GPS"},
    {"Max speed", u"Максимальная скорость"},
    {"Speed", u"Скорость"},
    {"Fastest", u"Самые быстрые"},
    {"days", u"дней"},
    {"Average speed", u"Средняя скорость"},
    {"s", u"с"},
    {"km/h", u"км/ч"},
    {"km", u"км"},
    {"m", u"м"},
    {"Elapsed", u"Время в пути"},
    {"Accel.", u"Разгон"},
    {"Distance", u"Пройденный путь"},
}};

enum LanguageState : int { UNKNOWN = -1, RUSSIAN = 0, NOT_RUSSIAN = 1 };

SharedWord<int> languageState = UNKNOWN;

WCHAR LowerAscii(WCHAR letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<WCHAR>(letter + ('a' - 'A')) : letter;
}

LanguageState DetectLanguage() {
  constexpr int SIZE = 200;
  WCHAR language[SIZE];
  const bool russian =
      GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, language, SIZE) > 0 &&
      LowerAscii(language[0]) == 'r' && LowerAscii(language[1]) == 'u';
  return russian ? RUSSIAN : NOT_RUSSIAN;
}

}  // namespace

int IsRussianLocale() {
  if (languageState == UNKNOWN) {
    languageState = DetectLanguage();
  }
  return languageState == RUSSIAN ? 1 : 0;
}

const char* GetText(Word word) {
  const LocalizedWord& entry = WORDS[static_cast<std::size_t>(word)];
  return IsRussianLocale() ? entry.russian.Get() : entry.english;
}

}  // namespace ferolin
