#include "run/PositionSource.h"

#include <chrono>
#include <cstdlib>
#include <utility>

#include "base/HostError.h"
#include "handheld.h"
#include "run/TripStretch.h"
#include "sources/DemoSource.h"
#include "sources/Feeder.h"
#include "sources/GpsdSource.h"
#include "sources/LoggedSource.h"
#include "sources/PortSource.h"

namespace host {

namespace {

constexpr const char* ENGINE_PORT = "COM1:";
constexpr LPCWSTR ENGINE_PORT_NAME = TEXT("COM1");
constexpr LPCWSTR GPS_LIBRARY = TEXT("Dastrel.DLL");
/// Environment variable that names gpsd's address to the GPS library.
constexpr const char* GPSD_VARIABLE = "FEROLIN_GPSD";
constexpr int LEAVE_BAUD_RATE = -9999;

/// Makes the engine's pause of a tenth of a second between two reads half a microsecond, for which
/// the device does not even sleep.
constexpr double FASTEST_TIME_RATE = 200000;

using Source = Options::Source;

double ChoosePace(const Options& options, PositionSource::Audience audience) {
  if (IsLive(options.source)) {
    return 1;
  }
  return options.rate.value_or(audience == PositionSource::Audience::WATCHING ? 1 : 0);
}

std::string GetVariable(const char* name, const char* otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : value;
}

}  // namespace

PositionSource::PositionSource(const EngineLibrary& engine, const Options& options,
                               std::unique_ptr<NmeaSource> recording, Audience audience,
                               std::function<void()> onTurn, std::function<void()> onEnd)
    : engine(engine),
      options(options),
      recording(std::move(recording)),
      audience(audience),
      pace(ChoosePace(options, audience)),
      tellTurn(std::move(onTurn)),
      tellEnd(std::move(onEnd)) {
  handheld::SetTimeRate(pace > 0 ? pace : FASTEST_TIME_RATE);
}

/// The engine has stopped reading.
PositionSource::~PositionSource() {
  handheld::FeedSerialPort(ENGINE_PORT, {});
}

void PositionSource::Open() {
  switch (options.source) {
    case Source::PORT:
      OpenPort();
      break;
    case Source::GPSD:
      OpenGpsd();
      break;
    case Source::SEARCH:
      OpenSearch();
      break;
    case Source::DEMO:
      Feed(MakeDemo());
      break;
    case Source::FILE:
      Feed(std::move(recording));
      break;
  }
}

void PositionSource::OpenPort() {
  PortSource::Check(options.device);
  const std::string trouble = options.raw ? PortSource::FindTrouble(options.device) : std::string();
  if (!trouble.empty()) {
    throw HostError(trouble);
  }
  const int baud = options.baud.value_or(0);
  if (!options.raw) {
    Feed(std::make_unique<PortSource>(options.device, baud));
    return;
  }
  handheld::MapSerialPort(ENGINE_PORT, options.device);
  engine().SetComPortSpeed(baud == 0 ? LEAVE_BAUD_RATE : baud);
  engine().SetUseGPSAPI(0);
  engine().SetComPortName(ENGINE_PORT_NAME);
  side = std::make_unique<SideReader>(nullptr);
}

void PositionSource::OpenGpsd() {
  if (options.gpsApi) {
    OpenGpsApi();
  } else {
    Feed(std::make_unique<GpsdSource>(options.gpsd));
  }
}

/// The variable with the folder of devices is for tests.
void PositionSource::OpenSearch() {
  SearchSource::Wishes wishes;
  wishes.last = {options.device, options.lastBaud};
  wishes.baudRate = options.baud.value_or(0);
  wishes.gpsd = GetVariable(GPSD_VARIABLE, "");
  wishes.devices = GetVariable("FEROLIN_DEVICES", "/dev");
  auto source = std::make_unique<SearchSource>(std::move(wishes));
  search = source.get();
  Feed(std::move(source));
}

/// The GPS API tells neither of each position nor of gpsd's absence: the host has a connection of
/// its own for that.
void PositionSource::OpenGpsApi() {
  const HMODULE library = LoadLibraryW(GPS_LIBRARY);
  if (library == nullptr) {
    throw HostError("cannot use the GPS API: there is no library for it beside the engine");
  }
  FreeLibrary(library);
  if (!options.gpsd.empty()) {
    setenv(GPSD_VARIABLE, options.gpsd.c_str(), 1);
  }
  engine().SetUseGPSAPI(1);
  side = std::make_unique<SideReader>(std::make_unique<GpsdSource>(GetVariable(GPSD_VARIABLE, "")));
}

void PositionSource::Feed(std::unique_ptr<NmeaSource> toFeed) {
  if (!options.recordFile.empty()) {
    log = std::make_unique<SentenceLog>(options.recordFile);
    toFeed = std::make_unique<LoggedSource>(std::move(toFeed), *log);
  }
  fed = std::move(toFeed);
  feed = MakeFeed();
  engine().SetUseGPSAPI(0);
  engine().SetComPortName(ENGINE_PORT_NAME);
}

std::unique_ptr<PositionFeed> PositionSource::MakeFeed() {
  const auto bridge = options.raw ? EpochQueue::Bridge::OFF : EpochQueue::Bridge::ON;
  if (pace <= 0) {
    auto fastest = std::make_unique<RecordingFeed>(*fed, bridge, tellTurn, tellEnd);
    recordingFeed = fastest.get();
    handheld::FeedSerialPort(ENGINE_PORT, [reader = fastest.get()](char* buffer, std::size_t size) {
      return reader->Read(buffer, size);
    });
    return fastest;
  }
  line = std::make_unique<PseudoTerminal>();
  handheld::MapSerialPort(ENGINE_PORT, line->GetDevice());
  return std::make_unique<Feeder>(*fed, *line, bridge, fed->IsLive() ? 0 : pace, tellEnd);
}

/// An audience sees the drive of this moment without an end; otherwise the drive is the same one
/// lap every time.
std::unique_ptr<NmeaSource> PositionSource::MakeDemo() const {
  using namespace std::chrono_literals;
  constexpr std::chrono::sys_seconds SUMMER_MORNING =
      std::chrono::sys_days(std::chrono::year(2024) / 6 / 1) + 6h;
  if (audience == Audience::ABSENT) {
    return std::make_unique<DemoSource>(SUMMER_MORNING, DemoSource::Laps::ONE);
  }
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  return std::make_unique<DemoSource>(now,
                                      pace > 0 ? DemoSource::Laps::ENDLESS : DemoSource::Laps::ONE);
}

void PositionSource::TellFixes(std::function<void(const Fix&)> take) {
  if (feed) {
    feed->TellFixes(std::move(take));
  } else {
    side->TellFixes(std::move(take));
  }
}

void PositionSource::Start() {
  if (feed) {
    feed->Start();
  } else {
    side->Start();
  }
}

void PositionSource::Stop() {
  if (feed) {
    feed->Stop();
  }
  if (side) {
    side->Stop();
  }
  if (log) {
    log->Finish();
  }
}

void PositionSource::LookSeldom() {
  if (recordingFeed != nullptr) {
    recordingFeed->LookSeldom();
  }
}

void PositionSource::LendTurns(std::function<void()> take) {
  recordingFeed->LendTurns(std::move(take));
}

void PositionSource::Rest(std::chrono::milliseconds limit) {
  recordingFeed->Rest(limit);
}

void PositionSource::Answer(std::uint64_t updates) {
  if (feed) {
    if (feed->TakeStretchStart()) {
      StartStretch(engine);
    }
    feed->Answer(updates);
  }
}

std::optional<SearchSource::Receiver> PositionSource::GetFound() const {
  return search != nullptr ? search->GetFound() : std::nullopt;
}

std::vector<Fix> PositionSource::TakeFixes() {
  return feed ? feed->TakeFixes() : std::vector{side->GetFix()};
}

PositionFeed::Report PositionSource::GetReport() const {
  if (feed) {
    return feed->GetReport();
  }
  PositionFeed::Report report;
  report.reception = side->GetReception();
  return report;
}

}  // namespace host
