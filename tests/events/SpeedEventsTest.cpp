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
    ASSERT_NE(nullptr, event) << index;
    EXPECT_EQ(useSound, event->useSound) << index;
    EXPECT_EQ(speedLimit, event->limit) << index;
    EXPECT_EQ(band, event->limitInter) << index;
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
  EXPECT_EQ(3, events.GetCount());
  ExpectEvent(0, false, 60, 10);
  ExpectEvent(1, false, 100, 10);
  ExpectEvent(2, false, 150, 10);
  EXPECT_FALSE(events.IsBeepOnZero());
}

TEST_F(SpeedEventsTest, IndexOutOfRangeIsNoEvent) {
  EXPECT_EQ(nullptr, events.GetEvent(-1));
  EXPECT_EQ(nullptr, events.GetEvent(3));
}

TEST_F(SpeedEventsTest, EventIsOverwritten) {
  events.SetEvent(1, {true, 90, 5});
  EXPECT_EQ(3, events.GetCount());
  ExpectEvent(0, false, 60, 10);
  ExpectEvent(1, true, 90, 5);
  ExpectEvent(2, false, 150, 10);
}

TEST_F(SpeedEventsTest, AnyIndexBeyondTheEndAppendsOneEvent) {
  events.SetEvent(3, {true, 200, 20});
  events.SetEvent(1000, {false, 250, 30});
  EXPECT_EQ(5, events.GetCount());
  ExpectEvent(3, true, 200, 20);
  ExpectEvent(4, false, 250, 30);
}

TEST_F(SpeedEventsTest, NegativeIndexChangesNothing) {
  events.SetEvent(-1, {true, 200, 20});
  EXPECT_EQ(3, events.GetCount());
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
  EXPECT_EQ(silence, At(55));
  EXPECT_EQ(limit, At(61));
  EXPECT_EQ(limit, At(65));
  EXPECT_EQ(silence, At(72));
  EXPECT_EQ(limitDown, At(58));
}

TEST_F(SpeedEventsTest, SilentLimitMakesNoSoundAtAnySpeed) {
  for (const float speed : {55.0F, 61.0F, 65.0F, 72.0F, 58.0F, 0.0F, 200.0F, 0.0F}) {
    EXPECT_EQ(silence, At(speed)) << speed;
  }
}

TEST_F(SpeedEventsTest, LimitAndEndOfItsBandBelongToTheBand) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(silence, At(59.9F));
  EXPECT_EQ(limit, At(60));
  EXPECT_EQ(limit, At(60));
  EXPECT_EQ(limit, At(70));
  EXPECT_EQ(silence, At(70.1F));
  EXPECT_EQ(limit, At(70));  // back in the band from above
  EXPECT_EQ(limitDown, At(59.9F));
  EXPECT_EQ(silence, At(59.8F));
}

TEST_F(SpeedEventsTest, JumpBeyondTheBandReachesTheLimit) {
  events.SetEvent(0, {true, 60, 10});
  At(50);
  EXPECT_EQ(limit, At(95));
  EXPECT_EQ(silence, At(95));
}

TEST_F(SpeedEventsTest, BandOfNoWidthRepeatsOnlyAtTheLimitItself) {
  events.SetEvent(0, {true, 60, 0});
  At(50);
  EXPECT_EQ(limit, At(60));
  EXPECT_EQ(limit, At(60));
  EXPECT_EQ(silence, At(60.1F));
}

TEST_F(SpeedEventsTest, NegativeBandNeverRepeats) {
  events.SetEvent(0, {true, 60, -1});
  At(50);
  EXPECT_EQ(limit, At(60));
  EXPECT_EQ(silence, At(60));
  EXPECT_EQ(limitDown, At(50));
}

TEST_F(SpeedEventsTest, LimitThatIsNotAboveZeroIsSkipped) {
  events.SetEvent(0, {true, 0, 10});
  events.SetEvent(1, {true, -10, 30});
  for (const float speed : {5.0F, 0.0F, 5.0F}) {
    EXPECT_EQ(silence, At(speed)) << speed;
  }
}

TEST_F(SpeedEventsTest, FirstFixMakesNoLimitSound) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(silence, At(65));
  EXPECT_EQ(limit, At(66));
}

TEST_F(SpeedEventsTest, OnlyTheFirstLimitThatFiresIsHeard) {
  events.SetEvent(0, {true, 60, 10});
  events.SetEvent(1, {true, 100, 10});
  At(50);
  EXPECT_EQ(limit, At(120));
  EXPECT_EQ(limitDown, At(40));
}

TEST_F(SpeedEventsTest, LimitThatDoesNotFireLetsTheNextOne) {
  events.SetEvent(0, {true, 60, 10});
  events.SetEvent(1, {true, 100, 10});
  At(80);
  EXPECT_EQ(limit, At(105));
  EXPECT_EQ(limitDown, At(90));
  EXPECT_EQ(limit, At(65));  // the band of the first
}

TEST_F(SpeedEventsTest, EarlierLimitOfTheListWinsWhateverItsSpeed) {
  events.SetEvent(0, {true, 100, 10});
  events.SetEvent(1, {true, 60, 50});
  At(105);
  EXPECT_EQ(limitDown, At(95));  // not the band of the second
}

TEST_F(SpeedEventsTest, EventBeyondTheThirdWarnsToo) {
  events.SetEvent(3, {true, 30, 5});
  At(20);
  EXPECT_EQ(limit, At(31));
}

TEST_F(SpeedEventsTest, FixWithoutASpeedIsPassedOver) {
  events.SetEvent(0, {true, 60, 10});
  EXPECT_EQ(silence, At(MISSING_FLOAT));
  At(55);
  EXPECT_EQ(silence, At(MISSING_FLOAT));
  EXPECT_EQ(limit, At(61));
}

TEST_F(SpeedEventsTest, SpeedCountsWithoutAValidFix) {
  events.SetEvent(0, {true, 60, 10});
  fix.fixValid = 0;
  At(55);
  EXPECT_EQ(limit, At(61));
}

// ---- Stopping ----

TEST_F(SpeedEventsTest, StopBeepsOnce) {
  events.SetBeepOnZero(true);
  EXPECT_EQ(silence, At(5));
  EXPECT_EQ(zero, At(0));
  EXPECT_EQ(silence, At(0));
  EXPECT_EQ(silence, At(3));
  EXPECT_EQ(zero, At(0));
}

TEST_F(SpeedEventsTest, StopIsSilentUnlessChosen) {
  At(5);
  EXPECT_EQ(silence, At(0));
}

TEST_F(SpeedEventsTest, FirstFixAtStandstillBeeps) {
  events.SetBeepOnZero(true);
  EXPECT_EQ(zero, At(0));
  EXPECT_EQ(silence, At(0));
}

TEST_F(SpeedEventsTest, FirstFixAtStandstillIsSilentUnlessChosen) {
  EXPECT_EQ(silence, At(0));
}

TEST_F(SpeedEventsTest, CreepingIsNoStop) {
  events.SetBeepOnZero(true);
  At(5);
  EXPECT_EQ(silence, At(0.1F));
}

TEST_F(SpeedEventsTest, StopFromAboveALimitBeepsAndThenTellsTheFall) {
  events.SetEvent(0, {true, 60, 10});
  events.SetBeepOnZero(true);
  At(70);
  EXPECT_EQ((Names{"Zero.wav", "LimitDown.wav"}), At(0));
}

// ---- Sounds ----

TEST_F(SpeedEventsTest, SoundsLieInTheWavFolderAndNeverWait) {
  events.SetEvent(0, {true, 60, 10});
  At(50);
  At(60);
  const std::vector<handheld::Sound> sounds = handheld::SoundsStarted();
  ASSERT_EQ(1U, sounds.size());
  EXPECT_EQ(folder.DevicePath() + u"\\Wav\\Limit.wav", sounds[0].path);
  EXPECT_EQ(0x22001U, sounds[0].flags);
}

TEST_F(SpeedEventsTest, MissingSoundFileIsSilentAndTheStepGoesOn) {
  std::filesystem::remove(folder.Path("Wav/Limit.wav"));
  events.SetEvent(0, {true, 60, 10});
  At(50);
  EXPECT_EQ(silence, At(65));
  EXPECT_EQ(limitDown, At(50));
}

TEST_F(SpeedEventsTest, EmptyFolderKeepsTheOneSetBefore) {
  events.SetEvent(0, {true, 60, 10});
  events.LoadSettings(TEXT(""), store);
  At(50);
  EXPECT_EQ(limit, At(60));
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
  EXPECT_EQ("true", Setting("BeepOnZero"));
  EXPECT_EQ("60", Setting("Limit1"));
  EXPECT_EQ("10", Setting("LimitInter1"));
  EXPECT_EQ("false", Setting("UseSound1"));
  EXPECT_EQ("90", Setting("Limit2"));
  EXPECT_EQ("5", Setting("LimitInter2"));
  EXPECT_EQ("true", Setting("UseSound2"));
  EXPECT_EQ("150", Setting("Limit3"));
  EXPECT_EQ("200", Setting("Limit4"));
  EXPECT_EQ("20", Setting("LimitInter4"));
  EXPECT_EQ("true", Setting("UseSound4"));
  EXPECT_EQ(14U, store.GetRecords().size());  // header, BeepOnZero and four times three
}

TEST_F(SpeedEventsTest, FourthEventIsWrittenButNotReadBack) {
  events.SetEvent(0, {true, 50, 5});
  events.SetEvent(3, {true, 200, 20});
  events.SaveSettings(store);
  ASSERT_TRUE(store.Save(folder.Path("settings.ini")));
  ASSERT_TRUE(store.Load(folder.Path("settings.ini")));
  SpeedEvents other;
  other.LoadSettings(TEXT(""), store);
  ASSERT_EQ(3, other.GetCount());
  EXPECT_EQ(50, other.GetEvent(0)->limit);
  EXPECT_TRUE(other.GetEvent(0)->useSound);
  EXPECT_EQ(150, other.GetEvent(2)->limit);
}

}  // namespace
}  // namespace ferolin
