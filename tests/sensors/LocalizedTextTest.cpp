#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "handheld.h"
#include "sensors/LocalizedText.h"

namespace ferolin {
namespace {

struct Translation {
  Word word;
  const char* english;
  const char* russian;
};

constexpr Translation TRANSLATIONS[] = {
    {Word::CHARGING, "charging", "заряжается"},
    {Word::BATTERY_STATUS, "Battery status", "Зарядка батареи"},
    {Word::SPEED_CHART, "Speed chart", "График скорости"},
    {Word::SPEEDOMETER, "Speedometer", "Спидометр"},
    {Word::SATELLITES, "Sattelites", "Спутники"},
    {Word::AZIMUTH, "Azimuth", "Азимут"},
    {Word::CURRENT_TIME, "Current time", "Текущее время"},
    {Word::LONGITUDE, "Longitude", "Долгота"},
    {Word::LATITUDE, "Latitude", "Широта"},
    {Word::SATELLITES_USED, "Sattelites used", "Количество спутников"},
    {Word::ALTITUDE, "Altitude", "Высота"},
    {Word::NO_SIGNAL, "No signal", "Нет сигнала"},
    {Word::GPS_STATUS, "GPS status", "Статус GPS"},
    {Word::MAX_SPEED, "Max speed", "Максимальная скорость"},
    {Word::SPEED, "Speed", "Скорость"},
    {Word::FASTEST, "Fastest", "Самые быстрые"},
    {Word::DAYS, "days", "дней"},
    {Word::AVERAGE_SPEED, "Average speed", "Средняя скорость"},
    {Word::SECOND, "s", "с"},
    {Word::KMH, "km/h", "км/ч"},
    {Word::KM, "km", "км"},
    {Word::METRE, "m", "м"},
    {Word::ELAPSED, "Elapsed", "Время в пути"},
    {Word::ACCEL, "Accel.", "Разгон"},
    {Word::DISTANCE, "Distance", "Пройденный путь"},
};
static_assert(std::size(TRANSLATIONS) == 25);
static_assert(std::size(TRANSLATIONS) == static_cast<std::size_t>(Word::COUNT));

constexpr int RUSSIAN = 1;
constexpr int ENGLISH = 0;

/// Ends the process: 1 when all texts are Russian, 0 when all are English, 2 when neither.
[[noreturn]] void ExitWithLanguage() {
  const bool russian = IsRussianLocale() == 1;
  handheld::SetCodePage(1251);
  for (const Translation& translation : TRANSLATIONS) {
    const std::string text = handheld::Utf8FromAnsi(GetText(translation.word));
    if (text != (russian ? translation.russian : translation.english)) {
      std::fprintf(stderr, "%s\n", text.c_str());
      std::_Exit(2);
    }
  }
  std::_Exit(russian ? RUSSIAN : ENGLISH);
}

/// The answer is kept for the life of a process, so each test has a process of its own.
class LocalizedTextTest : public testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};
using LocalizedTextDeathTest = LocalizedTextTest;

void ExitWithLanguageOf(const char* abbreviation) {
  handheld::SetLanguage(abbreviation);
  ExitWithLanguage();
}

TEST_F(LocalizedTextDeathTest, RussianDeviceGetsEveryWordInRussian) {
  EXPECT_EXIT(ExitWithLanguageOf("RUS"), testing::ExitedWithCode(RUSSIAN), "");
}

TEST_F(LocalizedTextDeathTest, EnglishDeviceGetsEveryWordInEnglish) {
  EXPECT_EXIT(ExitWithLanguageOf("ENU"), testing::ExitedWithCode(ENGLISH), "");
}

TEST_F(LocalizedTextDeathTest, CaseOfTheAbbreviationDoesNotMatter) {
  EXPECT_EXIT(ExitWithLanguageOf("rus"), testing::ExitedWithCode(RUSSIAN), "");
  EXPECT_EXIT(ExitWithLanguageOf("rU"), testing::ExitedWithCode(RUSSIAN), "");
}

TEST_F(LocalizedTextDeathTest, OtherLanguagesGetEnglish) {
  EXPECT_EXIT(ExitWithLanguageOf("DEU"), testing::ExitedWithCode(ENGLISH), "");
  EXPECT_EXIT(ExitWithLanguageOf("ROM"), testing::ExitedWithCode(ENGLISH), "");
  EXPECT_EXIT(ExitWithLanguageOf("TRU"), testing::ExitedWithCode(ENGLISH), "");
  EXPECT_EXIT(ExitWithLanguageOf("R"), testing::ExitedWithCode(ENGLISH), "");
}

TEST_F(LocalizedTextDeathTest, DeviceThatDoesNotTellItsLanguageGetsEnglish) {
  EXPECT_EXIT(
      {
        handheld::SetLocaleFailing(true);
        ExitWithLanguageOf("RUS");
      },
      testing::ExitedWithCode(ENGLISH), "");
}

TEST_F(LocalizedTextDeathTest, DeviceIsAskedOnlyOnce) {
  EXPECT_EXIT(
      {
        handheld::SetLanguage("RUS");
        IsRussianLocale();
        ExitWithLanguageOf("ENU");
      },
      testing::ExitedWithCode(RUSSIAN), "");
  EXPECT_EXIT(
      {
        handheld::SetLanguage("ENU");
        GetText(Word::KM);
        ExitWithLanguageOf("RUS");
      },
      testing::ExitedWithCode(ENGLISH), "");
}

}  // namespace
}  // namespace ferolin
