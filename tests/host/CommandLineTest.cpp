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
  EXPECT_EQ(Options::Action::RUN, options.action);
  EXPECT_EQ(Options::Source::DEMO, options.source);
  EXPECT_FALSE(options.rate);
  EXPECT_FALSE(options.json || options.raw || options.newTrip || options.writeKml);
  EXPECT_FALSE(options.limits);
  EXPECT_FALSE(options.beepOnZero);
}

TEST(CommandLine, TakesAPortWithItsBaudRate) {
  const Options options = ParseOptions({"--port", "/dev/ttyUSB0", "--baud", "4800"});
  EXPECT_EQ(Options::Source::PORT, options.source);
  EXPECT_EQ("/dev/ttyUSB0", options.device);
  EXPECT_EQ(4800, options.baud);
}

TEST(CommandLine, TakesAnAddressForBrowsers) {
  struct Case {
    const char* text;
    const char* address;
    int port;
  };
  for (const auto& [text, address, port] :
       {Case{"0.0.0.0", "0.0.0.0", 8947}, Case{"192.168.1.5:80", "192.168.1.5", 80},
        Case{"[::1]:0", "::1", 0}, Case{"[::]", "::", 8947}, Case{"::1", "::1", 8947},
        Case{"localhost:81", "127.0.0.1", 81}, Case{"8080", "127.0.0.1", 8080}}) {
    const Options options = ParseOptions({"--web", text});
    EXPECT_EQ(address, options.web->address) << text;
    EXPECT_EQ(port, options.web->port) << text;
  }
  EXPECT_EQ("127.0.0.1", ParseOptions({"--web"}).web->address);
  EXPECT_FALSE(ParseOptions({}).web);
  for (const char* text : {"car", "1.2.3", "127.0.0.1:", "127.0.0.1:65536", "127.0.0.1:-1",
                           "[::1]80", "[::1", "[127.0.0.1]x", ":80", "65536"}) {
    EXPECT_NE("(accepted)", ErrorOf({"--web", text})) << text;
  }
}

TEST(CommandLine, TakesNamesAndCertificatesForBrowsers) {
  const Options options = ParseOptions(
      {"--web", "--web-name", "a", "--web-name=b", "--web-tls", "cert", "key", "--json"});
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), options.webNames);
  EXPECT_EQ("cert", options.webCertificateFile);
  EXPECT_EQ("key", options.webKeyFile);
  EXPECT_TRUE(options.json);
  EXPECT_EQ("--web-tls needs CERT KEY", ErrorOf({"--web", "--web-tls"}));
}

TEST(CommandLine, LooksForAReceiver) {
  const Options options = ParseOptions({"--port", "auto", "--baud", "460800"});
  EXPECT_EQ(Options::Source::SEARCH, options.source);
  EXPECT_EQ("", options.device);
  EXPECT_EQ(460800, options.baud);
  EXPECT_EQ(Options::Source::SEARCH, ParseOptions({}, Options::Source::SEARCH).source);
  EXPECT_EQ(Options::Source::DEMO, ParseOptions({"--demo"}, Options::Source::SEARCH).source);
}

TEST(CommandLine, TakesUnitsTripAndRecord) {
  EXPECT_EQ(Units::KM, ParseOptions({}).units);
  EXPECT_EQ(Units::MI, ParseOptions({"--units", "mi"}).units);
  EXPECT_EQ(Units::NM, ParseOptions({"drives", "--units", "nm"}).units);
  EXPECT_TRUE(ParseOptions({"--degrees"}).decimalDegrees);
  EXPECT_EQ(Options::TripName::A, ParseOptions({}).trip);
  EXPECT_EQ(Options::TripName::B, ParseOptions({"--trip", "B"}).trip);
  EXPECT_EQ(Options::TripName::DAY, ParseOptions({"--trip", "day"}).trip);
  EXPECT_EQ("a.nmea", ParseOptions({"--record", "a.nmea", "--gpsd"}).recordFile);
  EXPECT_EQ("--units: \"m\" is not \"km\", \"mi\" or \"nm\"", ErrorOf({"--units", "m"}));
  EXPECT_EQ("--trip: \"C\" is not \"A\", \"B\" or \"day\"", ErrorOf({"--trip", "C"}));
  EXPECT_NE("(accepted)", ErrorOf({"--record", "a.nmea", "--nmea", "b.nmea"}));
  EXPECT_NE("(accepted)", ErrorOf({"--record", "a.nmea", "--gpsd", "--gps-api"}));
  EXPECT_NE("(accepted)", ErrorOf({"--record", "a.nmea", "--port", "/dev/x", "--raw"}));
}

TEST(CommandLine, ChoosesDotsPerInchByTheShorterSide) {
  const auto dpi = [](const std::vector<std::string>& arguments) {
    const Options options = ParseOptions(arguments);
    return GetDpi(options, options.size);
  };
  EXPECT_EQ(192, dpi({}));
  EXPECT_EQ(96, dpi({"--size", "240x320"}));
  EXPECT_EQ(96, dpi({"--size", "176x220"}));
  EXPECT_EQ(96, dpi({"--size", "800x359"}));
  EXPECT_EQ(192, dpi({"--size", "360x800"}));
  EXPECT_EQ(480, dpi({"--size", "1920x1080"}));
  EXPECT_EQ(96, dpi({"--contact-sheet", "a.png"}));
  EXPECT_EQ(120, dpi({"--dpi", "120"}));
  EXPECT_EQ(192, dpi({"--dpi", "120", "--dpi", "auto"}));
}

TEST(CommandLine, LeavesOutValuesThatWereUsedBefore) {
  const Options port = ParseOptions({"--port", "--json"});
  EXPECT_EQ(Options::Source::PORT, port.source);
  EXPECT_EQ("", port.device);
  EXPECT_TRUE(port.json);
  EXPECT_TRUE(ParseOptions({"--gpsd", "--gps-api"}).gpsApi);
  const Options gpsd = ParseOptions({"--gpsd", "--kml"});
  EXPECT_FALSE(gpsd.gpsApi);
  EXPECT_EQ(Options::Source::GPSD, gpsd.source);
  EXPECT_EQ("", gpsd.gpsd);
  EXPECT_TRUE(gpsd.writeKml);
  EXPECT_EQ("", gpsd.kmlFolder);
}

TEST(CommandLine, TakesValuesBehindAnEqualsSign) {
  const Options options = ParseOptions({"--nmea=a=b.nmea", "--rate=max", "--sms-text=--"});
  EXPECT_EQ("a=b.nmea", options.file);
  EXPECT_EQ(0, options.rate);
  EXPECT_EQ("--", options.smsText);
}

TEST(CommandLine, TakesTheCommandsForDrives) {
  const Options list = ParseOptions({"--home", "/h", "drives"});
  EXPECT_EQ(Options::Action::LIST_DRIVES, list.action);
  EXPECT_EQ("/h", list.home);
  EXPECT_EQ("/h", ParseOptions({"drives", "--home", "/h"}).home);
  const Options remove = ParseOptions({"drives", "delete", "12", "--yes"});
  EXPECT_EQ(Options::Action::DELETE_DRIVE, remove.action);
  EXPECT_EQ("12", remove.drives.which);
  EXPECT_TRUE(remove.drives.isConfirmed);
  EXPECT_FALSE(ParseOptions({"drives", "delete", "12"}).drives.isConfirmed);
}

TEST(CommandLine, TakesAnExportToSeveralFiles) {
  const Options options = ParseOptions({"export", "last", "--gpx", "a.gpx", "--csv=-"});
  EXPECT_EQ(Options::Action::EXPORT_DRIVES, options.action);
  EXPECT_EQ("last", options.drives.which);
  EXPECT_EQ("a.gpx", options.drives.gpxFile);
  EXPECT_EQ("-", options.drives.csvFile);
  EXPECT_EQ("", options.drives.kmlFile);
  const Options map = ParseOptions({"export", "all", "--kml", "a.kml", "--geojson", "a.json"});
  EXPECT_EQ("a.kml", map.drives.kmlFile);
  EXPECT_EQ("a.json", map.drives.geoJsonFile);
  EXPECT_FALSE(map.writeKml);
}

TEST(CommandLine, HelpsWithACommandThatIsNotComplete) {
  EXPECT_EQ(Options::Action::HELP, ParseOptions({"export", "--help"}).action);
  EXPECT_EQ(Options::Action::HELP, ParseOptions({"export", "last", "-h"}).action);
  EXPECT_EQ(Options::Action::HELP, ParseOptions({"drives", "delete", "--help"}).action);
}

TEST(CommandLine, RefusesCommandsThatMakeNoSense) {
  EXPECT_EQ("drives delete needs N, the number of a drive", ErrorOf({"drives", "delete"}));
  EXPECT_EQ("drives delete needs N, the number of a drive", ErrorOf({"drives", "delete", "x"}));
  EXPECT_EQ("export needs last, all or N, the number of a drive", ErrorOf({"export"}));
  EXPECT_EQ("export needs last, all or N, the number of a drive", ErrorOf({"export", "-"}));
  EXPECT_EQ("--json does not go with drives", ErrorOf({"--json", "drives"}));
  EXPECT_EQ("--demo does not go with export", ErrorOf({"export", "last", "--demo"}));
  EXPECT_EQ("unexpected argument \"last\" (see --help)", ErrorOf({"drives", "last"}));
  EXPECT_EQ("unknown option --gxp; did you mean --gpx?", ErrorOf({"export", "1", "--gxp"}));
  EXPECT_EQ("--gpx needs FILE", ErrorOf({"export", "1", "--gpx"}));
  EXPECT_EQ("--gpx needs FILE", ErrorOf({"export", "1", "--gpx="}));
}

TEST(CommandLine, TakesStandardInputAsAFile) {
  EXPECT_EQ("-", ParseOptions({"--nmea", "-"}).file);
}

TEST(CommandLine, TakesRates) {
  EXPECT_EQ(10, ParseOptions({"--rate", "10"}).rate);
  EXPECT_EQ(0.5, ParseOptions({"--rate", "0.5"}).rate);
  for (const char* rate : {"0", "-1", "fast", "nan", "1e9", "10x"}) {
    EXPECT_NE(ErrorOf({"--rate", rate}), "(accepted)") << rate;
  }
}

TEST(CommandLine, TakesUpToThreeLimits) {
  const Options options = ParseOptions({"--limit", "50", "--limit", "90:5"});
  ASSERT_TRUE(options.limits);
  ASSERT_EQ(2u, options.limits->size());
  EXPECT_EQ(50, (*options.limits)[0].kmh);
  EXPECT_EQ(10, (*options.limits)[0].band);
  EXPECT_EQ(90, (*options.limits)[1].kmh);
  EXPECT_EQ(5, (*options.limits)[1].band);
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
  EXPECT_EQ("RUS", ParseOptions({"--lang", "ru"}).language);
  EXPECT_EQ("ENU", ParseOptions({"--lang", "en"}).language);
  EXPECT_NE(ErrorOf({"--lang", "de"}), "(accepted)");
}

TEST(CommandLine, SwitchesTheBeepOnAndOff) {
  EXPECT_EQ(true, ParseOptions({"--beep-on-zero"}).beepOnZero);
  EXPECT_EQ(false, ParseOptions({"--no-beep-on-zero"}).beepOnZero);
}

TEST(CommandLine, CollectsResets) {
  EXPECT_EQ((std::vector<std::string>{"Distance", "Max speed"}),
            ParseOptions({"--reset", "Distance", "--reset", "Max speed"}).resets);
}

TEST(CommandLine, RefusesTextsThatTheSettingsFileCannotHold) {
  EXPECT_NE(ErrorOf({"--sms-text", "a[b"}), "(accepted)");
  EXPECT_EQ("%Speed% km/h", ParseOptions({"--sms-text", "%Speed% km/h"}).smsText);
}

TEST(CommandLine, NamesWhatIsWrong) {
  EXPECT_NE(ErrorOf({"--bogus"}).find("--bogus"), std::string::npos);
  EXPECT_NE(ErrorOf({"drive.nmea"}).find("--nmea drive.nmea"), std::string::npos);
  EXPECT_NE(ErrorOf({"--nmea"}).find("--nmea needs FILE"), std::string::npos);
  EXPECT_NE(ErrorOf({"--json=yes"}).find("--json"), std::string::npos);
  EXPECT_NE(ErrorOf({"--port", "x", "--baud", "49"}).find("49"), std::string::npos);
}

TEST(CommandLine, TellsWhatAValueShouldBe) {
  EXPECT_EQ("--dpi: \"47\" is not a whole number from 48 to 480", ErrorOf({"--dpi", "47"}));
  EXPECT_EQ("--lang: \"de\" is not \"en\" or \"ru\"", ErrorOf({"--lang", "de"}));
  EXPECT_EQ("--rate: \"-1\" is not \"max\" or a number from 0.01 to 10000",
            ErrorOf({"--rate", "-1"}));
}

TEST(CommandLine, TellsThatAValueIsMissing) {
  EXPECT_EQ("--nmea needs FILE", ErrorOf({"--json", "--nmea"}));
  EXPECT_EQ("--nmea needs FILE", ErrorOf({"--nmea=", "--json"}));
  EXPECT_EQ("--nmea needs FILE", ErrorOf({"--nmea", ""}));
  EXPECT_EQ("--json takes no value", ErrorOf({"--json=yes"}));
}

TEST(CommandLine, TakesAnEmptyOptionalValueForNone) {
  const Options options = ParseOptions({"--kml=", "--port=", "--json"});
  EXPECT_EQ("", options.kmlFolder);
  EXPECT_EQ(Options::Source::PORT, options.source);
  EXPECT_EQ("", options.device);
  EXPECT_TRUE(options.json);
  EXPECT_EQ("unexpected argument \"drive\"; a recording is played with --nmea drive",
            ErrorOf({"--kml=", "drive"}));
}

TEST(CommandLine, LetsALaterOptionOverrideAnEarlierOne) {
  EXPECT_EQ(false, ParseOptions({"--mirror", "--no-mirror"}).picture.mirror);
  EXPECT_EQ(true, ParseOptions({"--no-mirror", "--mirror"}).picture.mirror);
  EXPECT_EQ(Options::WindowUse::ALWAYS, ParseOptions({"--no-window", "--window"}).windowUse);
  EXPECT_EQ(Options::WindowUse::NEVER, ParseOptions({"--window", "--no-window"}).windowUse);
  EXPECT_EQ(3, ParseOptions({"--rate", "2", "--rate", "3"}).rate);
  EXPECT_EQ(1u, ParseOptions({"--limit", "50", "--limit", "none", "--limit", "70"}).limits->size());
}

TEST(CommandLine, ReadsNumbersAsDecimal) {
  EXPECT_EQ(100, ParseOptions({"--dpi", "0100"}).dpi);
  EXPECT_NE(ErrorOf({"--dpi", "0x60"}), "(accepted)");
}

TEST(CommandLine, SuggestsTheOptionThatWasMeant) {
  EXPECT_EQ("unknown option --mirorr; did you mean --mirror?", ErrorOf({"--mirorr"}));
  EXPECT_EQ("unknown option --Port; did you mean --port?", ErrorOf({"--Port=/dev/ttyS0"}));
  EXPECT_EQ("unknown option --prot; did you mean --port?",
            ErrorOf({"--json", "--prot", "/dev/ttyS0"}));
  EXPECT_EQ("unknown option -json; did you mean --json?", ErrorOf({"-json"}));
  EXPECT_EQ("unknown option --bogus (see --help)", ErrorOf({"--bogus"}));
  EXPECT_EQ("unknown option -- (see --help)", ErrorOf({"--"}));
}

TEST(CommandLine, RefusesWhatDoesNotGoTogether) {
  EXPECT_NE(ErrorOf({"--demo", "--gpsd"}).find("--demo and --gpsd"), std::string::npos);
  EXPECT_NE(ErrorOf({"--baud", "4800"}), "(accepted)");
  EXPECT_NE(ErrorOf({"--contact-sheet", "a", "--shot", "b"}), "(accepted)");
  EXPECT_NE(ErrorOf({"--contact-sheet", "a", "--window"}), "(accepted)");
  EXPECT_NE(ErrorOf({"--port", "x", "--rate", "2"}), "(accepted)");
  EXPECT_EQ("--gps-api goes with --gpsd", ErrorOf({"--port", "x", "--gps-api"}));
  EXPECT_NE(ErrorOf({"--gpsd", "--gps-api", "--raw"}), "(accepted)");
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
  EXPECT_EQ(800, usual.size.width);
  EXPECT_EQ(480, usual.size.height);
  EXPECT_FALSE(usual.dpi);
  const Options options = ParseOptions({"--size", "240x320", "--dpi", "192"});
  EXPECT_EQ(240, options.size.width);
  EXPECT_EQ(320, options.size.height);
  EXPECT_EQ(192, options.dpi);
  for (const char* size : {"240", "x", "240x", "x320", "240x320x", "0x0", "63x64", "64x4097"}) {
    EXPECT_NE(ErrorOf({"--size", size}), "(accepted)") << size;
  }
  EXPECT_NE(ErrorOf({"--dpi", "0"}), "(accepted)");
}

TEST(CommandLine, TurnsThePictureOrLeavesItAsBefore) {
  const Options::Picture as = ParseOptions({}).picture;
  EXPECT_FALSE(as.mirror || as.flip || as.rotate || as.invert);
  EXPECT_EQ("", as.view);
  const Options::Picture picture =
      ParseOptions({"--mirror", "--no-flip", "--rotate", "--no-invert", "--view", "Speed"}).picture;
  EXPECT_EQ(true, picture.mirror);
  EXPECT_EQ(false, picture.flip);
  EXPECT_EQ(true, picture.rotate);
  EXPECT_EQ(false, picture.invert);
  EXPECT_EQ("Speed", picture.view);
}

TEST(CommandLine, TakesOneOfTheThemes) {
  EXPECT_EQ("", ParseOptions({}).theme);
  EXPECT_EQ("night", ParseOptions({"--theme", "night"}).theme);
  EXPECT_NE(ErrorOf({"--theme", "dusk"}), "(accepted)");
}

TEST(CommandLine, TakesABroker) {
  EXPECT_EQ("", ParseOptions({}).mqtt.host);
  const Options::Mqtt plain = ParseOptions({"--mqtt", "box.local"}).mqtt;
  EXPECT_EQ("box.local", plain.host);
  EXPECT_EQ(std::nullopt, plain.port);
  EXPECT_FALSE(plain.hasTls);
  const Options::Mqtt whole =
      ParseOptions({"--mqtt", "[::1]:1884", "--mqtt-id", "van-7", "--mqtt-user", "me",
                    "--mqtt-password-file", "secret", "--mqtt-tls", "ca.pem"})
          .mqtt;
  EXPECT_EQ("::1", whole.host);
  EXPECT_EQ(1884, whole.port);
  EXPECT_EQ("van-7", whole.id);
  EXPECT_EQ("me", whole.user);
  EXPECT_EQ("secret", whole.passwordFile);
  EXPECT_TRUE(whole.hasTls);
  EXPECT_EQ("ca.pem", whole.trusted);
  EXPECT_EQ("::1", ParseOptions({"--mqtt", "::1"}).mqtt.host);
  EXPECT_EQ("::1", ParseOptions({"--mqtt", "[::1]"}).mqtt.host);
  EXPECT_TRUE(ParseOptions({"--mqtt", "box", "--mqtt-tls"}).mqtt.hasTls);
}

TEST(CommandLine, RefusesBrokersThatCannotBe) {
  const std::string address = " is not an address such as box.local, box.local:1884 or [::1]:1884";
  EXPECT_EQ("--mqtt: \"box:\"" + address, ErrorOf({"--mqtt", "box:"}));
  EXPECT_EQ("--mqtt: \"box:65536\"" + address, ErrorOf({"--mqtt", "box:65536"}));
  EXPECT_EQ("--mqtt: \":1883\"" + address, ErrorOf({"--mqtt", ":1883"}));
  EXPECT_EQ("--mqtt: \"[]\"" + address, ErrorOf({"--mqtt", "[]"}));
  EXPECT_EQ("--mqtt: \"[::1]1\"" + address, ErrorOf({"--mqtt", "[::1]1"}));
  EXPECT_NE("(accepted)", ErrorOf({"--mqtt", "box", "--mqtt-id", "a/b"}));
  EXPECT_EQ("--mqtt-id, --mqtt-user, --mqtt-password-file and --mqtt-tls go with --mqtt",
            ErrorOf({"--mqtt-id", "a"}));
  EXPECT_EQ("--mqtt-password-file goes with --mqtt-user",
            ErrorOf({"--mqtt", "box", "--mqtt-password-file", "secret"}));
}

TEST(CommandLine, EndsAfterUpdates) {
  EXPECT_EQ(0u, ParseOptions({}).updates);
  EXPECT_EQ(5u, ParseOptions({"--updates", "5"}).updates);
  EXPECT_NE(ErrorOf({"--updates", "0"}), "(accepted)");
}

TEST(CommandLine, AnswersHelpAndVersion) {
  EXPECT_EQ(Options::Action::HELP, ParseOptions({"--help"}).action);
  EXPECT_EQ(Options::Action::HELP, ParseOptions({"-h"}).action);
  EXPECT_EQ(Options::Action::VERSION, ParseOptions({"--version"}).action);
}

TEST(CommandLine, NamesEveryOptionInTheHelp) {
  const std::string help = GetHelp();
  for (const char* name : {"--demo",
                           "--port [DEVICE]",
                           "--baud N",
                           "--gpsd [HOST:PORT]",
                           "--gps-api",
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
                           "--mqtt HOST[:PORT]",
                           "--mqtt-tls [FILE]",
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
                           "--theme NAME",
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
