#include <gtest/gtest.h>

#include "base/HostError.h"
#include "commandline/CommandLine.h"

namespace host {
namespace {

std::string ErrorOf(const std::vector<std::string>& arguments) {
  try {
    ParseOptions(arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "(accepted)";
}

TEST(CommandLine, ShowsTheDemoByDefault) {
  const Options options = ParseOptions({});
  EXPECT_EQ(options.action, Options::Action::RUN);
  EXPECT_EQ(options.source, Options::Source::DEMO);
  EXPECT_FALSE(options.rate);
  EXPECT_FALSE(options.json || options.raw || options.newTrip || options.writeKml);
  EXPECT_FALSE(options.limits);
  EXPECT_FALSE(options.beepOnZero);
}

TEST(CommandLine, TakesAPortWithItsBaudRate) {
  const Options options = ParseOptions({"--port", "/dev/ttyUSB0", "--baud", "4800"});
  EXPECT_EQ(options.source, Options::Source::PORT);
  EXPECT_EQ(options.device, "/dev/ttyUSB0");
  EXPECT_EQ(options.baud, 4800);
}

TEST(CommandLine, LeavesOutValuesThatWereUsedBefore) {
  const Options port = ParseOptions({"--port", "--json"});
  EXPECT_EQ(port.source, Options::Source::PORT);
  EXPECT_EQ(port.device, "");
  EXPECT_TRUE(port.json);
  const Options gpsd = ParseOptions({"--gpsd", "--kml"});
  EXPECT_EQ(gpsd.source, Options::Source::GPSD);
  EXPECT_EQ(gpsd.gpsd, "");
  EXPECT_TRUE(gpsd.writeKml);
  EXPECT_EQ(gpsd.kmlFolder, "");
}

TEST(CommandLine, TakesValuesBehindAnEqualsSign) {
  const Options options = ParseOptions({"--nmea=a=b.nmea", "--rate=max", "--sms-text=--"});
  EXPECT_EQ(options.file, "a=b.nmea");
  EXPECT_EQ(options.rate, 0);
  EXPECT_EQ(options.smsText, "--");
}

TEST(CommandLine, TakesStandardInputAsAFile) {
  EXPECT_EQ(ParseOptions({"--nmea", "-"}).file, "-");
}

TEST(CommandLine, TakesRates) {
  EXPECT_EQ(ParseOptions({"--rate", "10"}).rate, 10);
  EXPECT_EQ(ParseOptions({"--rate", "0.5"}).rate, 0.5);
  for (const char* rate : {"0", "-1", "fast", "nan", "1e9", "10x"}) {
    EXPECT_NE(ErrorOf({"--rate", rate}), "(accepted)") << rate;
  }
}

TEST(CommandLine, TakesUpToThreeLimits) {
  const Options options = ParseOptions({"--limit", "50", "--limit", "90:5"});
  ASSERT_TRUE(options.limits);
  ASSERT_EQ(options.limits->size(), 2u);
  EXPECT_EQ((*options.limits)[0].kmh, 50);
  EXPECT_EQ((*options.limits)[0].band, 10);
  EXPECT_EQ((*options.limits)[1].kmh, 90);
  EXPECT_EQ((*options.limits)[1].band, 5);
  EXPECT_NE(ErrorOf({"--limit", "1", "--limit", "2", "--limit", "3", "--limit", "4"}),
            "(accepted)");
}

TEST(CommandLine, RemovesLimitsWithNone) {
  const Options options = ParseOptions({"--limit", "none"});
  ASSERT_TRUE(options.limits);
  EXPECT_TRUE(options.limits->empty());
}

TEST(CommandLine, RefusesLimitsThatMakeNoSense) {
  for (const char* limit : {"0", "-5", "1000", "50:", "50:0", ":5", "fast", "50:5:5"}) {
    EXPECT_NE(ErrorOf({"--limit", limit}), "(accepted)") << limit;
  }
}

TEST(CommandLine, ChoosesTheLanguage) {
  EXPECT_EQ(ParseOptions({"--lang", "ru"}).language, "RUS");
  EXPECT_EQ(ParseOptions({"--lang", "en"}).language, "ENU");
  EXPECT_NE(ErrorOf({"--lang", "de"}), "(accepted)");
}

TEST(CommandLine, SwitchesTheBeepOnAndOff) {
  EXPECT_EQ(ParseOptions({"--beep-on-zero"}).beepOnZero, true);
  EXPECT_EQ(ParseOptions({"--no-beep-on-zero"}).beepOnZero, false);
}

TEST(CommandLine, CollectsResets) {
  EXPECT_EQ(ParseOptions({"--reset", "Distance", "--reset", "Max speed"}).resets,
            (std::vector<std::string>{"Distance", "Max speed"}));
}

TEST(CommandLine, RefusesTextsThatTheSettingsFileCannotHold) {
  EXPECT_NE(ErrorOf({"--sms-text", "a[b"}), "(accepted)");
  EXPECT_EQ(ParseOptions({"--sms-text", "%Speed% km/h"}).smsText, "%Speed% km/h");
}

TEST(CommandLine, NamesWhatIsWrong) {
  EXPECT_NE(ErrorOf({"--bogus"}).find("--bogus"), std::string::npos);
  EXPECT_NE(ErrorOf({"drive.nmea"}).find("--nmea drive.nmea"), std::string::npos);
  EXPECT_NE(ErrorOf({"--nmea"}).find("--nmea needs FILE"), std::string::npos);
  EXPECT_NE(ErrorOf({"--json=yes"}).find("--json"), std::string::npos);
  EXPECT_NE(ErrorOf({"--port", "x", "--baud", "14400"}).find("14400"), std::string::npos);
}

TEST(CommandLine, TellsWhatAValueShouldBe) {
  EXPECT_EQ(ErrorOf({"--dpi", "47"}), "--dpi: \"47\" is not a whole number from 48 to 480");
  EXPECT_EQ(ErrorOf({"--lang", "de"}), "--lang: \"de\" is not \"en\" or \"ru\"");
  EXPECT_EQ(ErrorOf({"--rate", "-1"}),
            "--rate: \"-1\" is not \"max\" or a number from 0.01 to 10000");
}

TEST(CommandLine, TellsThatAValueIsMissing) {
  EXPECT_EQ(ErrorOf({"--json", "--nmea"}), "--nmea needs FILE");
  EXPECT_EQ(ErrorOf({"--nmea=", "--json"}), "--nmea needs FILE");
  EXPECT_EQ(ErrorOf({"--nmea", ""}), "--nmea needs FILE");
  EXPECT_EQ(ErrorOf({"--json=yes"}), "--json takes no value");
}

TEST(CommandLine, TakesAnEmptyOptionalValueForNone) {
  const Options options = ParseOptions({"--kml=", "--port=", "--json"});
  EXPECT_EQ(options.kmlFolder, "");
  EXPECT_EQ(options.source, Options::Source::PORT);
  EXPECT_EQ(options.device, "");
  EXPECT_TRUE(options.json);
  EXPECT_EQ(ErrorOf({"--kml=", "drive"}),
            "unexpected argument \"drive\"; a recording is played with --nmea drive");
}

TEST(CommandLine, LetsALaterOptionOverrideAnEarlierOne) {
  EXPECT_EQ(ParseOptions({"--mirror", "--no-mirror"}).picture.mirror, false);
  EXPECT_EQ(ParseOptions({"--no-mirror", "--mirror"}).picture.mirror, true);
  EXPECT_EQ(ParseOptions({"--no-window", "--window"}).windowUse, Options::WindowUse::ALWAYS);
  EXPECT_EQ(ParseOptions({"--window", "--no-window"}).windowUse, Options::WindowUse::NEVER);
  EXPECT_EQ(ParseOptions({"--rate", "2", "--rate", "3"}).rate, 3);
  EXPECT_EQ(ParseOptions({"--limit", "50", "--limit", "none", "--limit", "70"}).limits->size(), 1u);
}

TEST(CommandLine, ReadsNumbersAsDecimal) {
  EXPECT_EQ(ParseOptions({"--dpi", "0100"}).dpi, 100);
  EXPECT_NE(ErrorOf({"--dpi", "0x60"}), "(accepted)");
}

TEST(CommandLine, SuggestsTheOptionThatWasMeant) {
  EXPECT_EQ(ErrorOf({"--mirorr"}), "unknown option --mirorr; did you mean --mirror?");
  EXPECT_EQ(ErrorOf({"--Port=/dev/ttyS0"}), "unknown option --Port; did you mean --port?");
  EXPECT_EQ(ErrorOf({"--json", "--prot", "/dev/ttyS0"}),
            "unknown option --prot; did you mean --port?");
  EXPECT_EQ(ErrorOf({"-json"}), "unknown option -json; did you mean --json?");
  EXPECT_EQ(ErrorOf({"--bogus"}), "unknown option --bogus (see --help)");
  EXPECT_EQ(ErrorOf({"--"}), "unknown option -- (see --help)");
}

TEST(CommandLine, RefusesWhatDoesNotGoTogether) {
  EXPECT_NE(ErrorOf({"--demo", "--gpsd"}).find("--demo and --gpsd"), std::string::npos);
  EXPECT_NE(ErrorOf({"--baud", "4800"}), "(accepted)");
  EXPECT_NE(ErrorOf({"--contact-sheet", "a", "--shot", "b"}), "(accepted)");
  EXPECT_NE(ErrorOf({"--contact-sheet", "a", "--window"}), "(accepted)");
  EXPECT_NE(ErrorOf({"--port", "x", "--rate", "2"}), "(accepted)");
}

TEST(CommandLine, OpensAWindowUnlessOtherOutputIsAskedFor) {
  EXPECT_TRUE(WantsWindow(ParseOptions({})));
  EXPECT_FALSE(WantsWindow(ParseOptions({"--no-window"})));
  EXPECT_FALSE(WantsWindow(ParseOptions({"--json"})));
  EXPECT_FALSE(WantsWindow(ParseOptions({"--shot", "a.png"})));
  EXPECT_FALSE(WantsWindow(ParseOptions({"--frames", "a"})));
  EXPECT_FALSE(WantsWindow(ParseOptions({"--contact-sheet", "a.png"})));
  EXPECT_TRUE(WantsWindow(ParseOptions({"--json", "--window", "--shot", "a.png"})));
}

TEST(CommandLine, TakesTheSizeOfThePicture) {
  const Options usual = ParseOptions({});
  EXPECT_EQ(usual.size.width, 800);
  EXPECT_EQ(usual.size.height, 480);
  EXPECT_EQ(usual.dpi, 96);
  const Options options = ParseOptions({"--size", "240x320", "--dpi", "192"});
  EXPECT_EQ(options.size.width, 240);
  EXPECT_EQ(options.size.height, 320);
  EXPECT_EQ(options.dpi, 192);
  for (const char* size : {"240", "x", "240x", "x320", "240x320x", "0x0", "63x64", "64x4097"}) {
    EXPECT_NE(ErrorOf({"--size", size}), "(accepted)") << size;
  }
  EXPECT_NE(ErrorOf({"--dpi", "0"}), "(accepted)");
}

TEST(CommandLine, TurnsThePictureOrLeavesItAsBefore) {
  const Options::Picture as = ParseOptions({}).picture;
  EXPECT_FALSE(as.mirror || as.flip || as.rotate || as.invert);
  EXPECT_EQ(as.view, "");
  const Options::Picture picture =
      ParseOptions({"--mirror", "--no-flip", "--rotate", "--no-invert", "--view", "Speed"}).picture;
  EXPECT_EQ(picture.mirror, true);
  EXPECT_EQ(picture.flip, false);
  EXPECT_EQ(picture.rotate, true);
  EXPECT_EQ(picture.invert, false);
  EXPECT_EQ(picture.view, "Speed");
}

TEST(CommandLine, EndsAfterUpdates) {
  EXPECT_EQ(ParseOptions({}).updates, 0u);
  EXPECT_EQ(ParseOptions({"--updates", "5"}).updates, 5u);
  EXPECT_NE(ErrorOf({"--updates", "0"}), "(accepted)");
}

TEST(CommandLine, AnswersHelpAndVersion) {
  EXPECT_EQ(ParseOptions({"--help"}).action, Options::Action::HELP);
  EXPECT_EQ(ParseOptions({"-h"}).action, Options::Action::HELP);
  EXPECT_EQ(ParseOptions({"--version"}).action, Options::Action::VERSION);
}

TEST(CommandLine, NamesEveryOptionInTheHelp) {
  const std::string help = GetHelp();
  for (const char* name : {"--demo",
                           "--port [DEVICE]",
                           "--baud N",
                           "--gpsd [HOST:PORT]",
                           "--nmea FILE",
                           "--rate N|max",
                           "--raw",
                           "--json",
                           "--lang en|ru",
                           "--new-trip",
                           "--reset NAME",
                           "--kml [FOLDER]",
                           "--limit KMH[:BAND]",
                           "--beep-on-zero",
                           "--sms-to NUMBERS",
                           "--sms-text TEXT",
                           "--sms-every MINUTES",
                           "--home DIR",
                           "--window",
                           "--no-window",
                           "--size WxH",
                           "--dpi N",
                           "--fullscreen",
                           "--view NAME|NUMBER",
                           "--mirror",
                           "--flip",
                           "--rotate",
                           "--invert",
                           "--frames DIR",
                           "--shot FILE",
                           "--contact-sheet FILE",
                           "--updates N",
                           "Left, Right",
                           "Home, Del",
                           "Q, Esc",
                           "Examples:"}) {
    EXPECT_NE(help.find(name), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace host
