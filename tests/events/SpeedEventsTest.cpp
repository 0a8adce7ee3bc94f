#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "events/SpeedEvents.h"
#include "gps/FixRecord.h"
#include "handheld.h"
#include "settings/IniStore.h"
#include "support/EditableFix.h"
#include "support/TempFolder.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

using testing_support::TempFolder;
using Names = std::vector<std::string>;

/// A hundredth of a second of silence: 8 bits, 8000 samples a second, one channel.
std::string Silence() {
  constexpr char SIZE = 80;
  const char header[] = {'R', 'I', 'F',  'F',  36 + SIZE, 0,   0,    0,    'W', 'A', 'V',
                         'E', 'f', 'm',  't',  ' ',       16,  0,    0,    0,   1,   0,
                         1,   0,   0x40, 0x1F, 0,         0,   0x40, 0x1F, 0,   0,   1,
                         0,   8,   0,    'd',  'a',       't', 'a',  SIZE, 0,   0,   0};
  return std::string(header, sizeof header) + std::string(SIZE, '\x80');
}

class SpeedEventsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { setenv("SDL_AUDIODRIVER", "dummy", 1); }

  void SetUp() override {
    folder.MakeFolder("Wav");
    for (const char* name : {"Wav/Limit.wav", "Wav/LimitDown.wav", "Wav/Zero.wav"}) {
      folder.Write(name, Silence());
    }
    Load("");
    handheld::ForgetSoundsStarted();
  }

  /// Reads settings of these lines.
  void Load(const std::string& lines) {
    Configure(lines);
    events.LoadSettings(folder.DevicePath(), store);
  }

  void Configure(const std::string& lines) {
    folder.Write("settings.ini", lines.empty() ? "" : "[Events]\n" + lines);
    ASSERT_TRUE(store.Load(folder.Path("settings.ini")));
  }

  std::string Setting(const char* key) const { return store.GetValue(key, "Events"); }

  /// The sounds that a fix of this speed starts.
  Names At(float speedKmh) {
    handheld::ForgetSoundsStarted();
    fix.speedKmh = speedKmh;
    events.Check(fix);
    Names names;
    for (const handheld::Sound& sound : handheld::SoundsStarted()) {
      names.push_back(handheld::Utf8FromWide(sound.path.substr(sound.path.rfind(u'\\') + 1)));
    }
    return names;
  }

  void ExpectEvent(int index, bool useSound, int speedLimit, int band) const {
    const SpeedEvent* event = events.GetEvent(index);
    ASSERT_NE(event, nullptr) << index;
    EXPECT_EQ(event->useSound, useSound) << index;
    EXPECT_EQ(event->limit, speedLimit) << index;
    EXPECT_EQ(event->limitInter, band) << index;
  }

  const Names silence;
  const Names limit{"Limit.wav"};
  const Names limitDown{"LimitDown.wav"};
  const Names zero{"Zero.wav"};

  TempFolder folder;
  IniStore store;
  EditableFix fix;
  SpeedEvents events;
};

// ---- The list ----

TEST_F(SpeedEventsTest, ThreeSilentLimitsAreThereFromTheStart) {
  EXPECT_EQ(events.GetCount(), 3);
  ExpectEvent(0, false, 60, 10);
  ExpectEvent(1, false, 100, 10);
  ExpectEvent(2, false, 150, 10);
  EXPECT_FALSE(events.IsBeepOnZero());
}

TEST_F(SpeedEventsTest, IndexOutOfRangeIsNoEvent) {
  EXPECT_EQ(events.GetEvent(-1), nullptr);
  EXPECT_EQ(events.GetEvent(3), nullptr);
}

TEST_F(SpeedEventsTest, EventIsOverwritten) {
  events.SetEvent(1, {true, 90, 5});
  EXPECT_EQ(events.GetCount(), 3);
  ExpectEvent(0, false, 60, 10);
  ExpectEvent(1, true, 90, 5);
  ExpectEvent(2, false, 150, 10);
}

TEST_F(SpeedEventsTest, AnyIndexBeyondTheEndAppendsOneEvent) {
  events.SetEvent(3, {true, 200, 20});
  events.SetEvent(1000, {false, 250, 30});
  EXPECT_EQ(events.GetCount(), 5);
  ExpectEvent(3, true, 200, 20);
  ExpectEvent(4, false, 250, 30);
}

TEST_F(SpeedEventsTest, NegativeIndexChangesNothing) {
  events.SetEvent(-1, {true, 200, 20});
  EXPECT_EQ(events.GetCount(), 3);
  ExpectEvent(0, false, 60, 10);
}

TEST_F(SpeedEventsTest, ValuesAreNotChecked) {
  events.SetEvent(0, {true, -5, -2147483647});
  ExpectEvent(0, true, -5, -2147483647);
}

TEST_F(SpeedEventsTest, BeepOnZeroIsSwitched) {
  events.SetBeepOnZero(true);
  EXPECT_TRUE(events.IsBeepOnZero());
  events.SetBeepOnZero(false);
  EXPECT_FALSE(events.IsBeepOnZero());
}

// ---- Limits ----

TEST_F(SpeedEventsTest, WarnsAtTheLimitAndInItsBandAndTellsTheFall) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(At(55), silence);
  EXPECT_EQ(At(61), limit);
  EXPECT_EQ(At(65), limit);
  EXPECT_EQ(At(72), silence);
  EXPECT_EQ(At(58), limitDown);
}

TEST_F(SpeedEventsTest, SilentLimitMakesNoSoundAtAnySpeed) {
  for (const float speed : {55.0F, 61.0F, 65.0F, 72.0F, 58.0F, 0.0F, 200.0F, 0.0F}) {
    EXPECT_EQ(At(speed), silence) << speed;
  }
}

TEST_F(SpeedEventsTest, LimitAndEndOfItsBandBelongToTheBand) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(At(59.9F), silence);
  EXPECT_EQ(At(60), limit);
  EXPECT_EQ(At(60), limit);
  EXPECT_EQ(At(70), limit);
  EXPECT_EQ(At(70.1F), silence);
  EXPECT_EQ(At(70), limit);  // back in the band from above
  EXPECT_EQ(At(59.9F), limitDown);
  EXPECT_EQ(At(59.8F), silence);
}

TEST_F(SpeedEventsTest, JumpBeyondTheBandReachesTheLimit) {
  events.SetEvent(0, {true, 60, 10});
  At(50);
  EXPECT_EQ(At(95), limit);
  EXPECT_EQ(At(95), silence);
}

TEST_F(SpeedEventsTest, BandOfNoWidthRepeatsOnlyAtTheLimitItself) {
  events.SetEvent(0, {true, 60, 0});
  At(50);
  EXPECT_EQ(At(60), limit);
  EXPECT_EQ(At(60), limit);
  EXPECT_EQ(At(60.1F), silence);
}

TEST_F(SpeedEventsTest, NegativeBandNeverRepeats) {
  events.SetEvent(0, {true, 60, -1});
  At(50);
  EXPECT_EQ(At(60), limit);
  EXPECT_EQ(At(60), silence);
  EXPECT_EQ(At(50), limitDown);
}

TEST_F(SpeedEventsTest, LimitThatIsNotAboveZeroIsSkipped) {
  events.SetEvent(0, {true, 0, 10});
  events.SetEvent(1, {true, -10, 30});
  for (const float speed : {5.0F, 0.0F, 5.0F}) {
    EXPECT_EQ(At(speed), silence) << speed;
  }
}

TEST_F(SpeedEventsTest, FirstFixMakesNoLimitSound) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(At(65), silence);
  EXPECT_EQ(At(66), limit);
}

TEST_F(SpeedEventsTest, OnlyTheFirstLimitThatFiresIsHeard) {
  events.SetEvent(0, {true, 60, 10});
  events.SetEvent(1, {true, 100, 10});
  At(50);
  EXPECT_EQ(At(120), limit);
  EXPECT_EQ(At(40), limitDown);
}

TEST_F(SpeedEventsTest, LimitThatDoesNotFireLetsTheNextOne) {
  events.SetEvent(0, {true, 60, 10});
  events.SetEvent(1, {true, 100, 10});
  At(80);
  EXPECT_EQ(At(105), limit);
  EXPECT_EQ(At(90), limitDown);
  EXPECT_EQ(At(65), limit);  // the band of the first
}

TEST_F(SpeedEventsTest, EarlierLimitOfTheListWinsWhateverItsSpeed) {
  events.SetEvent(0, {true, 100, 10});
  events.SetEvent(1, {true, 60, 50});
  At(105);
  EXPECT_EQ(At(95), limitDown);  // not the band of the second
}

TEST_F(SpeedEventsTest, EventBeyondTheThirdWarnsToo) {
  events.SetEvent(3, {true, 30, 5});
  At(20);
  EXPECT_EQ(At(31), limit);
}

TEST_F(SpeedEventsTest, FixWithoutASpeedIsPassedOver) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(At(MISSING_FLOAT), silence);
  At(55);
  EXPECT_EQ(At(MISSING_FLOAT), silence);
  EXPECT_EQ(At(61), limit);
}

TEST_F(SpeedEventsTest, SpeedCountsWithoutAValidFix) {
  events.SetEvent(0, {true, 60, 10});
  fix.fixValid = 0;
  At(55);
  EXPECT_EQ(At(61), limit);
}

// ---- Stopping ----

TEST_F(SpeedEventsTest, StopBeepsOnce) {
  events.SetBeepOnZero(true);
  EXPECT_EQ(At(5), silence);
  EXPECT_EQ(At(0), zero);
  EXPECT_EQ(At(0), silence);
  EXPECT_EQ(At(3), silence);
  EXPECT_EQ(At(0), zero);
}

TEST_F(SpeedEventsTest, StopIsSilentUnlessChosen) {
  At(5);
  EXPECT_EQ(At(0), silence);
}

TEST_F(SpeedEventsTest, FirstFixAtStandstillBeeps) {
  events.SetBeepOnZero(true);
  EXPECT_EQ(At(0), zero);
  EXPECT_EQ(At(0), silence);
}

TEST_F(SpeedEventsTest, FirstFixAtStandstillIsSilentUnlessChosen) {
  EXPECT_EQ(At(0), silence);
}

TEST_F(SpeedEventsTest, CreepingIsNoStop) {
  events.SetBeepOnZero(true);
  At(5);
  EXPECT_EQ(At(0.1F), silence);
}

TEST_F(SpeedEventsTest, StopFromAboveALimitBeepsAndThenTellsTheFall) {
  events.SetEvent(0, {true, 60, 10});
  events.SetBeepOnZero(true);
  At(70);
  EXPECT_EQ(At(0), (Names{"Zero.wav", "LimitDown.wav"}));
}

// ---- Sounds ----

TEST_F(SpeedEventsTest, SoundsLieInTheWavFolderAndNeverWait) {
  events.SetEvent(0, {true, 60, 10});
  At(50);
  At(60);
  const std::vector<handheld::Sound> sounds = handheld::SoundsStarted();
  ASSERT_EQ(sounds.size(), 1U);
  EXPECT_EQ(sounds[0].path, folder.DevicePath() + u"\\Wav\\Limit.wav");
  EXPECT_EQ(sounds[0].flags, 0x22001U);
}

TEST_F(SpeedEventsTest, MissingSoundFileIsSilentAndTheStepGoesOn) {
  std::filesystem::remove(folder.Path("Wav/Limit.wav"));
  events.SetEvent(0, {true, 60, 10});
  At(50);
  EXPECT_EQ(At(65), silence);
  EXPECT_EQ(At(50), limitDown);
}

TEST_F(SpeedEventsTest, EmptyFolderKeepsTheOneSetBefore) {
  events.SetEvent(0, {true, 60, 10});
  events.LoadSettings(TEXT(""), store);
  At(50);
  EXPECT_EQ(At(60), limit);
}

// ---- Settings ----

TEST_F(SpeedEventsTest, OneConfiguredLimitLeavesTheOthersAlone) {
  Load("Limit1=80\nLimitInter1=5\nUseSound1=true\n");
  ExpectEvent(0, true, 80, 5);
  ExpectEvent(1, false, 100, 10);
  ExpectEvent(2, false, 150, 10);
}

TEST_F(SpeedEventsTest, AllThreeLimitsAreLoaded) {
  Load(
      "Limit3=3\nLimitInter3=33\nUseSound3=false\nLimit2=2\nLimitInter2=22\nUseSound2= true\n"
      "Limit1=1\nLimitInter1=11\nUseSound1=yes\n");
  ExpectEvent(0, false, 1, 11);
  ExpectEvent(1, true, 2, 22);
  ExpectEvent(2, false, 3, 33);
}

TEST_F(SpeedEventsTest, LimitOrBandThatIsMissingOrNotPositiveKeepsTheEvent) {
  Load(
      "Limit1=0\nLimitInter1=5\nUseSound1=true\n"
      "Limit2=80\nLimitInter2=0\nUseSound2=true\n"
      "Limit3=80\nUseSound3=true\n");
  ExpectEvent(0, false, 60, 10);
  ExpectEvent(1, false, 100, 10);
  ExpectEvent(2, false, 150, 10);
  Load("LimitInter1=5\nLimit2=-1\nLimitInter2=5\nLimit3=fast\nLimitInter3=5\n");
  ExpectEvent(0, false, 60, 10);
  ExpectEvent(1, false, 100, 10);
  ExpectEvent(2, false, 150, 10);
}

TEST_F(SpeedEventsTest, BeepOnZeroIsOnOnlyWhenItsValueContainsTrue) {
  Load("BeepOnZero=true\n");
  EXPECT_TRUE(events.IsBeepOnZero());
  Load("BeepOnZero=1\n");
  EXPECT_FALSE(events.IsBeepOnZero());
  events.SetBeepOnZero(true);
  Load("");
  EXPECT_FALSE(events.IsBeepOnZero());
}

TEST_F(SpeedEventsTest, EveryEventIsSaved) {
  events.SetBeepOnZero(true);
  events.SetEvent(1, {true, 90, 5});
  events.SetEvent(3, {true, 200, 20});
  events.SaveSettings(store);
  EXPECT_EQ(Setting("BeepOnZero"), "true");
  EXPECT_EQ(Setting("Limit1"), "60");
  EXPECT_EQ(Setting("LimitInter1"), "10");
  EXPECT_EQ(Setting("UseSound1"), "false");
  EXPECT_EQ(Setting("Limit2"), "90");
  EXPECT_EQ(Setting("LimitInter2"), "5");
  EXPECT_EQ(Setting("UseSound2"), "true");
  EXPECT_EQ(Setting("Limit3"), "150");
  EXPECT_EQ(Setting("Limit4"), "200");
  EXPECT_EQ(Setting("LimitInter4"), "20");
  EXPECT_EQ(Setting("UseSound4"), "true");
  EXPECT_EQ(store.GetRecords().size(), 14U);  // header, BeepOnZero and four times three
}

TEST_F(SpeedEventsTest, FourthEventIsWrittenButNotReadBack) {
  events.SetEvent(0, {true, 50, 5});
  events.SetEvent(3, {true, 200, 20});
  events.SaveSettings(store);
  ASSERT_TRUE(store.Save(folder.Path("settings.ini")));
  ASSERT_TRUE(store.Load(folder.Path("settings.ini")));
  SpeedEvents other;
  other.LoadSettings(TEXT(""), store);
  ASSERT_EQ(other.GetCount(), 3);
  EXPECT_EQ(other.GetEvent(0)->limit, 50);
  EXPECT_TRUE(other.GetEvent(0)->useSound);
  EXPECT_EQ(other.GetEvent(2)->limit, 150);
}

}  // namespace
}  // namespace ferolin
