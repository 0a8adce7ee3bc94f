#include <gtest/gtest.h>

#include "base/Cp1251.h"
#include "handheld.h"

namespace ferolin {
namespace {

TEST(Cp1251TextTest, AsciiStaysAsItIs) {
  constexpr Cp1251Text text(u"GPS km/h.");
  EXPECT_STREQ("GPS km/h.", text.Get());
}

TEST(Cp1251TextTest, AlphabetFillsTheBytesFromC0) {
  constexpr Cp1251Text text(u"АЯая");
  EXPECT_STREQ("\xC0\xDF\xE0\xFF", text.Get());
}

TEST(Cp1251TextTest, AgreesWithTheDevicesCodePage) {
  constexpr Cp1251Text text(u"Максимальная скорость");
  handheld::SetCodePage(1251);
  EXPECT_EQ("Максимальная скорость", handheld::Utf8FromAnsi(text.Get()));
  handheld::SetCodePage(1252);
}

}  // namespace
}  // namespace ferolin
