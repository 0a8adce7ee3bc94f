#include <gtest/gtest.h>

#include <string>

#include "handheld.h"
#include "text/CodePages.h"

namespace {

/// The device's own code page. tests/api tests the conversions on both homes.
class CodePages : public testing::Test {
 protected:
  CodePages() { handheld::SetCodePage(1251); }
  ~CodePages() override { handheld::SetCodePage(1252); }
};

TEST_F(CodePages, WidenCyrillic) {
  char16_t wide[8] = {};
  EXPECT_EQ(3, MultiByteToWideChar(CP_ACP, 0, "\xEA\xEC\xFF", 3, wide, 8));
  EXPECT_EQ(u"кмя", std::u16string(wide, 3));
}

TEST_F(CodePages, NarrowCyrillic) {
  char text[8] = {};
  EXPECT_EQ(4, WideCharToMultiByte(CP_ACP, 0, u"км/ч", 4, text, 8, nullptr, nullptr));
  EXPECT_EQ("\xEA\xEC/\xF7", std::string(text, 4));
}

TEST_F(CodePages, WesternHasItsOwnLetters) {
  handheld::SetCodePage(1252);
  char16_t wide[4] = {};
  EXPECT_EQ(2, MultiByteToWideChar(CP_ACP, 0, "\xE9\x80", 2, wide, 4));
  EXPECT_EQ(u"é€", std::u16string(wide, 2));
}

/// The 128 characters of the bytes from 0x80, control characters left out.
std::u16string UpperHalf() {
  std::u16string all;
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const char text = static_cast<char>(byte);
    char16_t wide = 0;
    EXPECT_EQ(1, MultiByteToWideChar(CP_ACP, 0, &text, 1, &wide, 1));
    char back = 0;
    EXPECT_EQ(1, WideCharToMultiByte(CP_ACP, 0, &wide, 1, &back, 1, nullptr, nullptr));
    EXPECT_EQ(text, back) << byte;
    if (wide > 0x9F) {
      all += wide;
    } else {
      EXPECT_EQ(byte, wide);
    }
  }
  return all;
}

TEST_F(CodePages, CyrillicHasOneUnassignedByte) {
  EXPECT_EQ(
      u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏђ‘’“”•–—™љ›њќћџ\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї°±Ііґµ¶·ё№є»јЅѕї"
      u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя",
      UpperHalf());
}

TEST_F(CodePages, WesternHasFiveUnassignedBytes) {
  handheld::SetCodePage(1252);
  EXPECT_EQ(
      u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
      u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ",
      UpperHalf());
}

TEST_F(CodePages, NeedAPlaceOfItsOwnForTheText) {
  char16_t wide[2] = {};
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, "a", 1, nullptr, 2));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, "a", 1, wide, -1));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

TEST_F(CodePages, HostsConvertThroughUtf8) {
  EXPECT_EQ("км", handheld::Utf8FromAnsi("\xEA\xEC"));
  EXPECT_EQ("\xEA\xEC", handheld::AnsiFromUtf8("км"));
  // One character, one question mark, however many units it has.
  EXPECT_EQ("?a?", handheld::AnsiFromUtf8("\U0001F680aé"));
  handheld::SetCodePage(1252);
  EXPECT_EQ("??", handheld::AnsiFromUtf8("км"));
}

TEST_F(CodePages, UnknownNumbersChangeNothing) {
  handheld::SetCodePage(866);
  EXPECT_EQ(1251u, handheld::AnsiCodePage());
}

}  // namespace
