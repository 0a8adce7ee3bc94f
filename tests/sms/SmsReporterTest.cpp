#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/CodePage.h"
#include "base/ModuleFunction.h"
#include "gps/FixRecord.h"
#include "handheld.h"
#include "settings/IniStore.h"
#include "sms/SmsReporter.h"
#include "support/EditableFix.h"
#include "support/Moments.h"
#include "support/TempFolder.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

using testing_support::Moment;
using testing_support::TempFolder;

void ProvideLibrary(const char* kind) {
  handheld::SetLibraryDirectory(std::string(STAND_IN_FOLDER "/") + kind);
}

/// The stand-in library, which records what is sent. Made before the reporter, it outlives it.
class Outbox {
 public:
  using Messages = std::vector<std::pair<std::string, std::string>>;

  Outbox() {
    ProvideLibrary("recording");
    module = LoadLibraryW(TEXT("Parlex.DLL"));
    FindEntry(module, TEXT("CountMessages"), count);
    FindEntry(module, TEXT("RecipientOf"), recipientOf);
    FindEntry(module, TEXT("MessageTo"), messageTo);
  }
  ~Outbox() {
    FreeLibrary(module);
    handheld::SetLibraryDirectory("");
  }

  /// Recipient and text of everything sent so far.
  Messages All() const {
    Messages messages;
    for (int index = 0; index < count(); ++index) {
      messages.emplace_back(handheld::Utf8FromWide(recipientOf(index)), messageTo(index));
    }
    return messages;
  }

  int Count() const { return count(); }

 private:
  HMODULE module = nullptr;
  int (*count)() = nullptr;
  LPCWSTR (*recipientOf)(int) = nullptr;
  LPCSTR (*messageTo)(int) = nullptr;
};

class SmsReporterTest : public testing::Test {
 protected:
  void SetUp() override { Configure(""); }

  /// Makes these lines the settings.
  void Configure(const std::string& lines) {
    folder.Write("settings.ini", lines.empty() ? "" : "[SMS]\n" + lines);
    ASSERT_TRUE(store.Load(folder.Path("settings.ini")));
  }

  std::string Setting(const char* key) const { return store.GetValue(key, "SMS"); }

  std::string MessageFrom(const std::string& text) {
    reporter.SetParams(TEXT("111"), text, 1, false, false);
    return reporter.BuildMessage();
  }

  TempFolder folder;
  IniStore store;
  Outbox outbox;
  EditableFix fix;
  SmsReporter reporter{fix};
};

// ---- The sibling library ----

TEST_F(SmsReporterTest, LibraryMakesSendingPossible) {
  EXPECT_TRUE(reporter.CanSend());
}

TEST(SmsReporterWithoutLibraryTest, MissingLibraryMakesEverySendANoOp) {
  const EditableFix fix;
  SmsReporter reporter(fix);
  EXPECT_FALSE(reporter.CanSend());
  reporter.SetParams(TEXT("111,222"), "text", 1, true, false);
  reporter.MakeReport().Send();
  EXPECT_EQ("text", reporter.GetText());
}

TEST(SmsReporterWithoutLibraryTest, LibraryWithoutTheEntryMakesEverySendANoOp) {
  ProvideLibrary("empty");
  const EditableFix fix;
  SmsReporter reporter(fix);
  handheld::SetLibraryDirectory("");
  EXPECT_FALSE(reporter.CanSend());
  reporter.SetParams(TEXT("111"), "text", 1, true, false);
  reporter.MakeReport().Send();
}

// ---- Parameters ----

TEST_F(SmsReporterTest, FreshReporterIsSilent) {
  EXPECT_FALSE(reporter.IsEnabled());
  EXPECT_FALSE(reporter.IsSendIfChanged());
  EXPECT_EQ(1, reporter.GetInterval());
  EXPECT_EQ("", reporter.GetText());
  EXPECT_EQ(TEXT(""), reporter.GetAddress());
}

TEST_F(SmsReporterTest, ParametersAreKept) {
  reporter.SetParams(TEXT("111,222"), "I am here", 15, true, true);
  EXPECT_EQ(TEXT("111,222"), reporter.GetAddress());
  EXPECT_EQ("I am here", reporter.GetText());
  EXPECT_EQ(15, reporter.GetInterval());
  EXPECT_TRUE(reporter.IsEnabled());
  EXPECT_TRUE(reporter.IsSendIfChanged());
  reporter.SetParams(TEXT("333"), "", 0, false, false);
  EXPECT_EQ(TEXT("333"), reporter.GetAddress());
  EXPECT_EQ("", reporter.GetText());
  EXPECT_EQ(0, reporter.GetInterval());
  EXPECT_FALSE(reporter.IsEnabled());
  EXPECT_FALSE(reporter.IsSendIfChanged());
}

TEST_F(SmsReporterTest, FlagsAreToldApart) {
  reporter.SetParams(TEXT(""), "", 1, true, false);
  EXPECT_TRUE(reporter.IsEnabled());
  EXPECT_FALSE(reporter.IsSendIfChanged());
  reporter.SetParams(TEXT(""), "", 1, false, true);
  EXPECT_FALSE(reporter.IsEnabled());
  EXPECT_TRUE(reporter.IsSendIfChanged());
}

TEST_F(SmsReporterTest, BlanksAroundNumbersAndEmptyNumbersAreDropped) {
  reporter.SetParams(TEXT(" 111 ,222,, \t,+7 999\t,"), "", 1, false, false);
  EXPECT_EQ(TEXT("111,222,+7 999"), reporter.GetAddress());
  reporter.SetParams(TEXT(" , "), "", 1, false, false);
  EXPECT_EQ(TEXT(""), reporter.GetAddress());
}

// ---- Settings ----

TEST_F(SmsReporterTest, SettingsAreLoaded) {
  Configure("Address=111, 222\nInterval=30\nSendIfChanged=true\nSend=true\nText=At %Time%\n");
  reporter.LoadSettings(store);
  EXPECT_EQ(TEXT("111,222"), reporter.GetAddress());
  EXPECT_EQ(30, reporter.GetInterval());
  EXPECT_TRUE(reporter.IsSendIfChanged());
  EXPECT_TRUE(reporter.IsEnabled());
  EXPECT_EQ("At %Time%", reporter.GetText());
}

TEST_F(SmsReporterTest, MissingSettingsCountAsEmpty) {
  reporter.SetParams(TEXT("111"), "text", 15, true, true);
  reporter.LoadSettings(store);
  EXPECT_EQ(TEXT(""), reporter.GetAddress());
  EXPECT_EQ(0, reporter.GetInterval());
  EXPECT_FALSE(reporter.IsSendIfChanged());
  EXPECT_FALSE(reporter.IsEnabled());
  EXPECT_EQ("", reporter.GetText());
}

TEST_F(SmsReporterTest, EachFlagHasItsOwnKey) {
  Configure("Send=true\n");
  reporter.LoadSettings(store);
  EXPECT_TRUE(reporter.IsEnabled());
  EXPECT_FALSE(reporter.IsSendIfChanged());
  Configure("SendIfChanged= true \nSend=1\n");
  reporter.LoadSettings(store);
  EXPECT_FALSE(reporter.IsEnabled());
  EXPECT_TRUE(reporter.IsSendIfChanged());
}

TEST_F(SmsReporterTest, IntervalIsReadAsFarAsItIsANumber) {
  Configure("Interval=5 minutes\n");
  reporter.LoadSettings(store);
  EXPECT_EQ(5, reporter.GetInterval());
  Configure("Interval=soon\n");
  reporter.LoadSettings(store);
  EXPECT_EQ(0, reporter.GetInterval());
}

TEST_F(SmsReporterTest, SettingsOfOtherSectionsAreNotTaken) {
  Configure("");
  folder.Write("settings.ini", "Text=outside\n[Events]\nText=elsewhere\n");
  ASSERT_TRUE(store.Load(folder.Path("settings.ini")));
  reporter.LoadSettings(store);
  EXPECT_EQ("", reporter.GetText());
}

TEST_F(SmsReporterTest, AllFiveSettingsAreSaved) {
  reporter.SetParams(TEXT("111, 222"), "At %Time%", 15, true, false);
  reporter.SaveSettings(store);
  EXPECT_EQ("111,222", Setting("Address"));
  EXPECT_EQ("15", Setting("Interval"));
  EXPECT_EQ("false", Setting("SendIfChanged"));
  EXPECT_EQ("true", Setting("Send"));
  EXPECT_EQ("At %Time%", Setting("Text"));
  EXPECT_EQ(6U, store.GetRecords().size());  // the header and the five
}

TEST_F(SmsReporterTest, SavedSettingsReadBack) {
  reporter.SetParams(TEXT("111,222"), "\xCF\xF0\xE8\xE2\xE5\xF2 %Speed%", -3, false, true);
  reporter.SaveSettings(store);
  ASSERT_TRUE(store.Save(folder.Path("settings.ini")));
  ASSERT_TRUE(store.Load(folder.Path("settings.ini")));
  SmsReporter other(fix);
  other.LoadSettings(store);
  EXPECT_EQ(TEXT("111,222"), other.GetAddress());
  EXPECT_EQ("\xCF\xF0\xE8\xE2\xE5\xF2 %Speed%", other.GetText());
  EXPECT_EQ(-3, other.GetInterval());
  EXPECT_FALSE(other.IsEnabled());
  EXPECT_TRUE(other.IsSendIfChanged());
}

// ---- The message ----

TEST_F(SmsReporterTest, TextWithoutPlaceholdersIsSentAsItIs) {
  EXPECT_EQ("100% sure, %d %Unknown% %latitude%",
            MessageFrom("100% sure, %d %Unknown% %latitude%"));
  EXPECT_EQ("", MessageFrom(""));
}

TEST_F(SmsReporterTest, EveryPlaceholderIsReplaced) {
  fix.latitude = 5530.5F;
  fix.longitude = -1131.25F;
  fix.altitude = 545.456F;
  fix.speedKmh = 41.4848F;
  fix.course = 84.4F;
  fix.SetLocalTime(Moment(2024, 5, 6, 9, 5, 7));
  EXPECT_EQ("55.305000", MessageFrom("%Latitude%"));
  EXPECT_EQ("-11.312500", MessageFrom("%Longitude%"));
  EXPECT_EQ("545.46", MessageFrom("%Altitude%"));
  EXPECT_EQ("41.5", MessageFrom("%Speed%"));
  EXPECT_EQ("84", MessageFrom("%Azimuth%"));
  EXPECT_EQ("9:5:7", MessageFrom("%Time%"));
  EXPECT_TRUE(MessageFrom("%GoogleMaps%").starts_with("http"));
  EXPECT_TRUE(MessageFrom("%GoogleMaps%").ends_with("/m/local?q=55.305000,-11.312500"));
}

/// 3730 x 0.01 in single precision falls a little short of 37.3.
TEST_F(SmsReporterTest, CoordinatesAreScaledInSinglePrecision) {
  fix.latitude = -3352.128F;
  fix.longitude = 3730;
  EXPECT_EQ("-33.521278 37.299999", MessageFrom("%Latitude% %Longitude%"));
}

TEST_F(SmsReporterTest, PlaceholderThatComesTwiceIsReplacedTwice) {
  fix.latitude = 5530.5F;
  EXPECT_EQ("55.305000 and again 55.305000", MessageFrom("%Latitude% and again %Latitude%"));
}

TEST_F(SmsReporterTest, PlaceholdersMayTouch) {
  fix.speedKmh = 50;
  fix.altitude = 7;
  EXPECT_EQ("50.07.0050.0", MessageFrom("%Speed%%Altitude%%Speed%"));
}

/// Of two placeholders that share a sign, the first in this order is replaced, wherever it stands.
TEST_F(SmsReporterTest, PlaceholdersAreReplacedInTheirOrder) {
  fix.latitude = 5530.5F;
  fix.longitude = -1131.25F;
  fix.altitude = 7;
  fix.speedKmh = 50;
  fix.course = 84;
  EXPECT_EQ("55.305000Longitude%", MessageFrom("%Latitude%Longitude%"));
  EXPECT_EQ("%Longitude55.305000", MessageFrom("%Longitude%Latitude%"));
  EXPECT_EQ("-11.312500Altitude%", MessageFrom("%Longitude%Altitude%"));
  EXPECT_EQ("%Altitude-11.312500", MessageFrom("%Altitude%Longitude%"));
  EXPECT_EQ("7.00Speed%", MessageFrom("%Altitude%Speed%"));
  EXPECT_EQ("%Speed7.00", MessageFrom("%Speed%Altitude%"));
  EXPECT_EQ("50.0Azimuth%", MessageFrom("%Speed%Azimuth%"));
  EXPECT_EQ("%Azimuth50.0", MessageFrom("%Azimuth%Speed%"));
  EXPECT_EQ("84Time%", MessageFrom("%Azimuth%Time%"));
  EXPECT_EQ("%Time84", MessageFrom("%Time%Azimuth%"));
  EXPECT_EQ("0:0:0GoogleMaps%", MessageFrom("%Time%GoogleMaps%"));
  EXPECT_EQ("%GoogleMaps0:0:0", MessageFrom("%GoogleMaps%Time%"));
  EXPECT_EQ("50.0Time%", MessageFrom("%Speed%Time%"));
}

TEST_F(SmsReporterTest, MissingValuesAreNotAvailable) {
  EXPECT_EQ("N/A N/A N/A N/A N/A",
            MessageFrom("%Latitude% %Longitude% %Altitude% %Speed% %Azimuth%"));
}

TEST_F(SmsReporterTest, TimeIsAlwaysFilledIn) {
  EXPECT_EQ("0:0:0", MessageFrom("%Time%"));
}

TEST_F(SmsReporterTest, LinkIsReplacedOnlyWhenBothCoordinatesAreThere) {
  EXPECT_EQ("%GoogleMaps%", MessageFrom("%GoogleMaps%"));
  fix.latitude = 5530.5F;
  EXPECT_EQ("%GoogleMaps%", MessageFrom("%GoogleMaps%"));
  fix.latitude = MISSING_FLOAT;
  fix.longitude = 3730;
  EXPECT_EQ("%GoogleMaps%", MessageFrom("%GoogleMaps%"));
}

TEST_F(SmsReporterTest, LongTemplatesAreNotCut) {
  fix.speedKmh = 50;
  const std::string filling(1000, 'x');
  EXPECT_EQ(filling + "50.0" + filling, MessageFrom(filling + "%Speed%" + filling));
}

// ---- Sending on request ----

TEST_F(SmsReporterTest, EveryRecipientGetsTheSameMessageInOrder) {
  fix.speedKmh = 50;
  reporter.SetParams(TEXT("111,222"), "%Speed%", 1, false, false);
  reporter.MakeReport().Send();
  EXPECT_EQ((Outbox::Messages{{"111", "50.0"}, {"222", "50.0"}}), outbox.All());
}

TEST_F(SmsReporterTest, RequestIsSentWhateverIntervalAndFlags) {
  reporter.SetParams(TEXT("111"), "now", 0, false, true);
  reporter.MakeReport().Send();
  reporter.MakeReport().Send();
  EXPECT_EQ(2, outbox.Count());
}

TEST_F(SmsReporterTest, WithoutRecipientsNothingIsSent) {
  reporter.SetParams(TEXT(""), "now", 1, true, false);
  reporter.MakeReport().Send();
  EXPECT_EQ(0, outbox.Count());
}

// ---- Sending automatically ----

class SmsReporterTickTest : public SmsReporterTest {
 protected:
  void SetUp() override {
    SmsReporterTest::SetUp();
    fix.latitude = 5530.5F;
    fix.longitude = 3730;
  }

  void Send(int intervalMinutes, bool onlyIfChanged = false, bool enabled = true) {
    reporter.SetParams(TEXT("111"), "%Time%", intervalMinutes, enabled, onlyIfChanged);
  }

  /// A fix so long after 12:00:00.
  void TickAt(int minutes, int seconds = 0, int milliseconds = 0) {
    fix.SetLocalTime(Moment(2024, 5, 6, 12, minutes, seconds, milliseconds));
    reporter.Tick().Send();
  }
};

TEST_F(SmsReporterTickTest, FirstFixNeverSends) {
  Send(1);
  TickAt(30);
  EXPECT_EQ(0, outbox.Count());
}

TEST_F(SmsReporterTickTest, TwoFixesAnIntervalApartSend) {
  Send(5);
  TickAt(0);
  TickAt(5);
  EXPECT_EQ((Outbox::Messages{{"111", "12:5:0"}}), outbox.All());
}

TEST_F(SmsReporterTickTest, OnlyWholeMinutesCount) {
  Send(5);
  TickAt(0, 0, 1);
  TickAt(5, 0, 0);
  EXPECT_EQ(0, outbox.Count());
  TickAt(10, 59, 999);
  EXPECT_EQ(1, outbox.Count());
}

TEST_F(SmsReporterTickTest, FixesOneSecondApartNeverSend) {
  Send(1);
  for (int second = 0; second < 600; ++second) {
    TickAt(second / 60, second % 60);
  }
  EXPECT_EQ(0, outbox.Count());
}

TEST_F(SmsReporterTickTest, IntervalIsThatBetweenTwoFixesNotSinceTheLastMessage) {
  Send(5);
  TickAt(0);
  TickAt(4);
  TickAt(8);
  EXPECT_EQ(0, outbox.Count());
  TickAt(13);
  TickAt(18);
  EXPECT_EQ(2, outbox.Count());
}

TEST_F(SmsReporterTickTest, NothingIsSentUnlessItIsEnabled) {
  Send(1, false, false);
  TickAt(0);
  TickAt(30);
  EXPECT_EQ(0, outbox.Count());
}

TEST_F(SmsReporterTickTest, IntervalBelowOneTurnsTheStepOff) {
  for (const int interval : {0, -1}) {
    Send(interval);
    TickAt(0);
    TickAt(30);
    EXPECT_EQ(0, outbox.Count()) << interval;
  }
}

TEST_F(SmsReporterTickTest, FixesWhileTurnedOffAreNotRemembered) {
  Send(5);
  TickAt(0);
  Send(5, false, false);
  TickAt(4);
  Send(5);
  TickAt(6);
  EXPECT_EQ(1, outbox.Count());
}

TEST_F(SmsReporterTickTest, UnchangedPositionIsNotSentAgainWhenSoChosen) {
  Send(5, true);
  TickAt(0);
  TickAt(5);
  EXPECT_EQ(0, outbox.Count());
  fix.latitude = 5530.501F;
  TickAt(10);
  EXPECT_EQ(1, outbox.Count());
  fix.longitude = -3730;
  TickAt(15);
  EXPECT_EQ(2, outbox.Count());
  TickAt(20);
  EXPECT_EQ(2, outbox.Count());
}

TEST_F(SmsReporterTickTest, PositionIsComparedWithThatOfTheFixBefore) {
  Send(5, true);
  TickAt(0);
  fix.latitude = 5531;
  TickAt(1);
  TickAt(6);
  EXPECT_EQ(0, outbox.Count());
}

TEST_F(SmsReporterTickTest, ClockThatGoesBackStartsAfresh) {
  Send(5);
  TickAt(30);
  TickAt(10);
  EXPECT_EQ(0, outbox.Count());
  TickAt(15);
  EXPECT_EQ(1, outbox.Count());
}

}  // namespace
}  // namespace ferolin
