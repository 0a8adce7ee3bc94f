#include <gtest/gtest.h>
#include <objbase.h>

#include "StandInSms.h"
#include "base/ModuleFunction.h"
#include "handheld.h"
#include "handheld/Parlex.h"

namespace {

TEST(MessagingThatIsMissing, SendsNothing) {
  SendParlex(u"+79161234567", "here");
}

/// The stand-in for the system's messaging.
class TextMessaging : public testing::Test {
 protected:
  TextMessaging() {
    handheld::SetLanguage("RUS");
    handheld::SetLibraryDirectory(STAND_IN_FOLDER);
    module = LoadLibraryW(TEXT("sms.dll"));
    ferolin::FindEntry(module, TEXT("CountSmsConnections"), countConnections);
    ferolin::FindEntry(module, TEXT("GetTakenMessage"), getTaken);
    ferolin::FindEntry(module, TEXT("SetSmsResult"), setResult);
    *getTaken() = {};
  }
  ~TextMessaging() override {
    setResult(S_OK);
    FreeLibrary(module);
    handheld::SetLibraryDirectory("");
    handheld::SetLanguage("ENU");
  }

  HMODULE module;
  int (*countConnections)() = nullptr;
  TakenMessage* (*getTaken)() = nullptr;
  void (*setResult)(HRESULT) = nullptr;
};

TEST_F(TextMessaging, GetsNumberAndText) {
  SendParlex(u"+79161234567", "60.5 km/h: \xDF");
  EXPECT_EQ(u"+79161234567", getTaken()->number);
  EXPECT_EQ(1, getTaken()->numberType);
  EXPECT_EQ(u"60.5 km/h: \u042F", getTaken()->text);
  EXPECT_EQ(0, countConnections());
}

TEST_F(TextMessaging, LeavesTheKindOfANumberWithoutCountryToTheNetwork) {
  SendParlex(u"0911", "");
  EXPECT_EQ(u"0911", getTaken()->number);
  EXPECT_EQ(0, getTaken()->numberType);
  EXPECT_EQ(u"", getTaken()->text);
}

// Six words around 140 bytes of headers, all of them 0 but the class, the second word.
TEST_F(TextMessaging, AsksForAnOrdinaryMessage) {
  SendParlex(u"1", "a");
  std::vector<BYTE> expected(164);
  expected[4] = 1;
  EXPECT_EQ(expected, getTaken()->provider);
}

TEST_F(TextMessaging, TakesNumbersUpToItsLimit) {
  SendParlex(std::u16string(256, u'1').c_str(), "a");
  EXPECT_EQ(-1, getTaken()->numberType);
  SendParlex(std::u16string(255, u'1').c_str(), "a");
  EXPECT_EQ(255u, getTaken()->number.size());
}

TEST_F(TextMessaging, IsLeftWhenItTakesNothing) {
  setResult(E_FAIL);
  SendParlex(u"1", "a");
  EXPECT_EQ(0, countConnections());
}

TEST_F(TextMessaging, IsNotAskedForNothing) {
  SendParlex(nullptr, "a");
  SendParlex(u"1", nullptr);
  SendParlex(u"", "a");
  EXPECT_EQ(-1, getTaken()->numberType);
}

}  // namespace
