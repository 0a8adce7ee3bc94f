#include "run/HostRun.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/HostError.h"
#include "handheld.h"
#include "outputs/JsonOutput.h"
#include "outputs/LineOutput.h"
#include "outputs/TableOutput.h"
#include "run/Choices.h"
#include "sources/DemoSource.h"
#include "sources/PortSource.h"
#include "sources/RecordingClock.h"

namespace host {

namespace {

constexpr const char* ENGINE_PORT = "COM1:";
constexpr LPCWSTR ENGINE_PORT_NAME = TEXT("COM1");
constexpr LPCWSTR GPS_LIBRARY = TEXT("Dastrel.DLL");
/// Tells the GPS library where gpsd is.
constexpr const char* GPSD_VARIABLE = "FEROLIN_GPSD";
constexpr int LEAVE_BAUD_RATE = -9999;

/// The engine waits a tenth of a second between two reads. As fast as possible means that this
/// takes no time.
constexpr double FASTEST_TIME_RATE = 10000;

/// A display is looked after 60 times a second.
constexpr DWORD DISPLAY_INTERVAL_MS = 16;
constexpr DWORD LONG_TIME_MS = 60000;
/// By then the demo's car is well on its way.
constexpr int UPDATES_BEFORE_SHEET = 200;

constexpr const char* DEFAULT_SMS_TEXT = "%Time% %Latitude% %Longitude% %Speed% km/h %GoogleMaps%";

using Source = Options::Source;

const char* TripSection(Source source) {
  if (IsLive(source)) {
    return "HostTrip";
  }
  return source == Source::DEMO ? "HostDemoTrip" : "HostRecordingTrip";
}

double ChoosePace(const Options& options, bool isLive) {
  if (IsLive(options.source)) {
    return 1;
  }
  return options.rate.value_or(isLive ? 1 : 0);
}

/// Before somebody's eyes the demo happens now; elsewhere it is the same every time.
std::chrono::sys_seconds DemoStart(bool isLive) {
  using namespace std::chrono_literals;
  constexpr std::chrono::sys_seconds SUMMER_MORNING =
      std::chrono::sys_days(std::chrono::year(2024) / 6 / 1) + 6h;
  return isLive ? std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now())
                : SUMMER_MORNING;
}

std::string JoinNames(const Readouts& readouts) {
  std::string names;
  for (const Readout& each : readouts) {
    names += names.empty() ? "" : ", ";
    names += each.name;
  }
  return names;
}

bool DrawsFrames(const Options& options) {
  return WantsWindow(options) || !options.framesFolder.empty() || !options.shotFile.empty();
}

std::unique_ptr<RenderWindow> MakeRenderWindow(const Options& options) {
  return DrawsFrames(options)
             ? std::make_unique<RenderWindow>(options.size.width, options.size.height)
             : nullptr;
}

/// Null when none is wanted or to be had; throws HostError when the user insists on one.
std::unique_ptr<handheld::Display> OpenDisplay(const Options& options, const RenderWindow* window,
                                               Messages& messages) {
  const bool insists = options.windowUse == Options::WindowUse::ALWAYS;
  if (!WantsWindow(options) || (!insists && !handheld::Display::IsPresent())) {
    return nullptr;
  }
  std::string error;
  auto display = handheld::Display::Open(window->GetHandle(), options.fullscreen, error);
  if (display == nullptr && insists) {
    throw HostError("cannot open a window: " + error);
  }
  if (display == nullptr) {
    messages.Say("no window is opened: " + error);
  }
  return display;
}

/// Says nothing: the window shows it all.
class NoOutput : public Output {
 public:
  void Show(const Update&) override {}
  void Finish(const Update&, const Readouts&) override {}
};

std::string ReadText(void(WINAPI* get)(char*, int)) {
  std::array<char, 2048> buffer = {};
  get(buffer.data(), static_cast<int>(buffer.size()));
  return handheld::Utf8FromAnsi(buffer.data());
}

}  // namespace

HostRun::HostRun(const EngineLibrary& engineToUse, Options optionsToFollow, const HomeFolder& home,
                 std::unique_ptr<NmeaSource> recording, StandardOutput& standardOutput,
                 Messages& messagesToUse)
    : engine(engineToUse),
      options(std::move(optionsToFollow)),
      source(std::move(recording)),
      standard(standardOutput),
      messages(messagesToUse),
      renderWindow(MakeRenderWindow(options)),
      display(OpenDisplay(options, renderWindow.get(), messages)),
      isLiveTable(Screen::IsTerminal() && !options.json && !WantsPictures(options)),
      isLive(isLiveTable || display != nullptr),
      pace(ChoosePace(options, isLive)),
      choices(engine, CHOICES_SECTION),
      trip(engine, TripSection(options.source)),
      window(engine().GetWndMessageID()),
      reports(engine, options.smsEveryMinutes),
      frames(options.framesFolder, options.shotFile) {
  RecallChoices(options, choices);
  handheld::SetTimeRate(pace > 0 ? pace : FASTEST_TIME_RATE);
  ApplyLimits();
  ApplySms();
  ApplyTrack(home);
  ApplyTrip();
  ApplyPicture();
}

HostRun::~HostRun() {
  feeder.reset();
  engine().StopCallBack();
  engine().SetRenderWindow(nullptr);
  messages.Release();
}

void HostRun::ApplyLimits() {
  if (options.beepOnZero) {
    engine().SetBeepOnZero(*options.beepOnZero ? 1 : 0);
  }
  if (!options.limits) {
    return;
  }
  const int wanted = static_cast<int>(options.limits->size());
  for (int i = 0; i < std::max(wanted, engine().GetSpeedEventsCount()); ++i) {
    if (i < wanted) {
      const Options::Limit& limit = (*options.limits)[static_cast<std::size_t>(i)];
      engine().SetSpeedEvent(i, limit.kmh, limit.band, 1);
    } else {
      engine().SetSpeedEvent(i, engine().GetEventSpeedLimit(i), engine().GetEventSpeedInter(i), 0);
    }
  }
}

void HostRun::ApplySms() {
  if (!options.smsTo && !options.smsText && options.smsEveryMinutes == 0) {
    return;
  }
  const std::string to = options.smsTo.value_or(ReadText(engine().GetSMSAddress));
  std::string text = options.smsText.value_or(ReadText(engine().GetSMSText));
  if (text.empty()) {
    text = DEFAULT_SMS_TEXT;
  }
  if (options.smsEveryMinutes > 0 && to.empty()) {
    throw UsageError("--sms-every needs --sms-to: nobody was named before");
  }
  // The engine's automatic step stays off: reports are sent from here.
  engine().SetSMSParams(handheld::WideFromUtf8(to).c_str(), handheld::WideFromUtf8(text).c_str(),
                        options.smsEveryMinutes, 0, 0);
  if (options.smsEveryMinutes > 0 && engine().IsSMSExist() == 0) {
    messages.Say("no position reports are sent: there is no library for messages");
  }
}

void HostRun::ApplyTrack(const HomeFolder& home) {
  if (!options.writeKml) {
    return;
  }
  trackFolder.emplace(options.kmlFolder.empty() ? home.GetPath() + "/Tracks" : options.kmlFolder);
  if (!options.kmlFolder.empty()) {
    options.kmlFolder = trackFolder->GetPath().string();
    engine().SetLogFolder(handheld::DevicePath(options.kmlFolder).c_str());
  }
  engine().SetWriteKML(1);
}

void HostRun::ApplyTrip() {
  const std::set<int> afresh = FindResets();
  if (!options.newTrip && trip.Restore(afresh)) {
    const std::string distance = engine.GetSensorValue(DISTANCE);
    messages.Say("going on with the trip of the last run" +
                 (distance.empty() ? "" : ", " + distance) + " (--new-trip starts over)");
  }
}

/// Places of the sensors that the user names.
std::set<int> HostRun::FindResets() const {
  const Readouts sensors = engine.GetReadouts();
  std::set<int> found;
  for (const std::string& name : options.resets) {
    const auto sensor = std::find_if(sensors.begin(), sensors.end(), [&name](const Readout& each) {
      return strcasecmp(each.name.c_str(), name.c_str()) == 0;
    });
    if (sensor == sensors.end()) {
      throw UsageError("--reset: there is no \"" + name + "\" among " + JoinNames(sensors));
    }
    found.insert(static_cast<int>(sensor - sensors.begin()));
  }
  return found;
}

void HostRun::ApplyPicture() {
  Options::Picture& picture = options.picture;
  if (!picture.view.empty()) {
    picture.view = std::to_string(FindView(engine(), picture.view));
  }
  if (!options.contactSheetFile.empty()) {
    contactSheet = std::make_unique<ContactSheet>(engine(), UPDATES_BEFORE_SHEET);
    return;
  }
  if (display == nullptr && !frames.AreWanted()) {
    return;
  }
  RecallPicture(picture, choices);
  ViewControl::Actions actions;
  actions.close = [this] { window.Post(HostWindow::Event::STOP); };
  actions.toggleFullscreen = [this] {
    if (display) {
      display->ToggleFullscreen();
    }
  };
  actions.say = [this](const std::string& text) { messages.Say(text); };
  views = std::make_unique<ViewControl>(engine(), renderWindow->GetHandle(), picture,
                                        std::move(actions));
  window.SetListeners([this](LPARAM code) { views->OnButton(code); },
                      [this](const MSG& message) { views->OnMessage(message); });
  engine().SetRenderWindow(renderWindow->GetHandle());
}

void HostRun::OpenSource() {
  switch (options.source) {
    case Source::PORT:
      OpenPort();
      break;
    case Source::GPSD:
      OpenGpsd();
      break;
    case Source::DEMO:
      source = std::make_unique<DemoSource>(DemoStart(isLive), isLive && pace > 0
                                                                   ? DemoSource::Laps::ENDLESS
                                                                   : DemoSource::Laps::ONE);
      [[fallthrough]];
    case Source::FILE:
      FeedFrom(std::move(source), options.raw ? Feeder::Bridge::OFF : Feeder::Bridge::ON);
      break;
  }
}

void HostRun::OpenPort() {
  PortSource::Check(options.device);
  const int baud = options.baud.value_or(0);
  if (options.raw) {
    handheld::MapSerialPort(ENGINE_PORT, options.device);
    engine().SetComPortSpeed(baud == 0 ? LEAVE_BAUD_RATE : baud);
    engine().SetUseGPSAPI(0);
    engine().SetComPortName(ENGINE_PORT_NAME);
  } else {
    FeedFrom(std::make_unique<PortSource>(options.device, baud), Feeder::Bridge::ON);
  }
}

void HostRun::OpenGpsd() {
  const HMODULE library = LoadLibraryW(GPS_LIBRARY);
  if (library == nullptr) {
    throw HostError("cannot use gpsd: there is no library for it beside the engine");
  }
  FreeLibrary(library);
  if (!options.gpsd.empty()) {
    setenv(GPSD_VARIABLE, options.gpsd.c_str(), 1);
  }
  engine().SetUseGPSAPI(1);
}

void HostRun::FeedFrom(std::unique_ptr<NmeaSource> toFeed, Feeder::Bridge bridge) {
  source = std::move(toFeed);
  handheld::MapSerialPort(ENGINE_PORT, line.GetDevice());
  engine().SetUseGPSAPI(0);
  engine().SetComPortName(ENGINE_PORT_NAME);
  const bool isFastest = !source->IsLive() && pace <= 0;
  feeder = std::make_unique<Feeder>(
      *source, line, bridge, source->IsLive() ? 0 : pace,
      [isFastest](const Epoch& epoch) {
        if (isFastest) {
          RecordingClock::Follow(epoch);
        }
      },
      [this] { window.Post(HostWindow::Event::SOURCE_ENDED); });
}

std::string HostRun::DescribeSource() const {
  switch (options.source) {
    case Source::PORT:
      return options.device;
    case Source::GPSD:
      return "gpsd " + options.gpsd;
    case Source::FILE:
      return options.file == "-" ? "standard input" : options.file;
    case Source::DEMO:
      break;
  }
  return "simulated drive";
}

std::unique_ptr<Output> HostRun::MakeOutput() {
  if (options.json) {
    return std::make_unique<JsonOutput>(standard);
  }
  if (isLiveTable) {
    messages.Hold();
    return std::make_unique<TableOutput>(standard, DescribeSource(), update.readouts);
  }
  if (display != nullptr) {
    return std::make_unique<NoOutput>();
  }
  return std::make_unique<LineOutput>(standard);
}

void HostRun::Run(SignalWatcher& signals) {
  OpenSource();
  KeepChoices(options, choices);
  update.readouts = engine.GetReadouts();
  output = MakeOutput();
  start = std::chrono::steady_clock::now();
  if (engine().StartCallBack(window.GetHandle()) == 0) {
    throw HostError("the engine does not start reading from " + DescribeSource());
  }
  if (feeder) {
    feeder->Start();
  }
  signals.Start([this] { window.Post(HostWindow::Event::STOP); },
                [this] { window.Post(HostWindow::Event::RESIZE); });
  ShowTitle();
  Loop();
  signals.Stop();
  Finish();
}

void HostRun::Loop() {
  const DWORD patience = display ? DISPLAY_INTERVAL_MS : LONG_TIME_MS;
  while (!standard.IsBroken() && !isComplete) {
    UpdateDisplay();
    switch (window.Wait(patience)) {
      case HostWindow::Event::UPDATE:
        ShowUpdate();
        break;
      case HostWindow::Event::RESIZE:
        output->Redraw();
        break;
      case HostWindow::Event::NOTHING:
        break;
      case HostWindow::Event::SOURCE_ENDED:
      case HostWindow::Event::STOP:
        return;
    }
  }
}

/// Also when updates come one upon the other, but not at each of them.
void HostRun::UpdateDisplay() {
  const auto now = std::chrono::steady_clock::now();
  if (display == nullptr || now < nextDisplayUpdate) {
    return;
  }
  nextDisplayUpdate = now + std::chrono::milliseconds(DISPLAY_INTERVAL_MS);
  display->Update();
  ShowTitle();
}

void HostRun::ShowTitle() {
  if (display == nullptr) {
    return;
  }
  const std::string title = (update.number == 0 ? "Waiting for positions" : views->GetViewName()) +
                            " - Ferolin, " + DescribeSource();
  if (title != titleShown) {
    display->SetTitle(title);
    titleShown = title;
  }
}

void HostRun::TakePictures() {
  if (contactSheet && contactSheet->OnUpdate()) {
    isComplete = true;
  }
  if (!frames.AreWanted()) {
    return;
  }
  if (std::optional<handheld::Pixels> frame = renderWindow->AwaitFrame()) {
    frames.Add(std::move(*frame));
  }
}

void HostRun::ShowUpdate() {
  ++update.number;
  update.readouts = engine.GetReadouts();
  if (feeder) {
    update.progress = feeder->GetReport().progress;
  }
  output->Show(update);
  reports.OnUpdate(update);
  sounds.Collect();
  TakePictures();
  if (update.number == options.updates) {
    isComplete = true;
  }
  // The device remembers every message; over a day that is a lot.
  handheld::ForgetMessagesPosted();
  if (feeder) {
    SayNews();
    feeder->Answer();
  }
}

void HostRun::SayNews() {
  for (const std::string& news : notices.TakeNews(feeder->GetReport())) {
    messages.Say(news);
  }
}

void HostRun::Finish() {
  if (feeder) {
    feeder->Stop();
  }
  engine().StopCallBack();
  update.readouts = engine.GetReadouts();
  output->Finish(update, engine.GetStates());
  messages.Release();
  trip.Store();
  if (views) {
    KeepPicture(views->GetChoices(), choices);
  }
  SumUp();
  frames.Finish();
  if (contactSheet) {
    contactSheet->Write(options.contactSheetFile);
  }
}

void HostRun::SumUp() {
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
  const auto tenths = static_cast<long long>(passed.count() * 10);
  messages.Say(std::to_string(update.number) + " updates in " + std::to_string(tenths / 10) + "." +
               std::to_string(tenths % 10) + " s from " + DescribeSource());
  if (feeder) {
    SayNews();
    const Feeder::Report report = feeder->GetReport();
    for (const std::string& sum : BridgeNotices::SumUp(report)) {
      messages.Say(sum);
    }
    const bool isUseless = options.source == Source::FILE && update.number == 0;
    if (isUseless) {
      messages.Say(options.raw
                       ? "the engine took nothing: it goes by $GPRMC sentences that end in CR LF"
                       : "the engine took nothing: it goes by RMC sentences, and there are none");
    }
  }
  if (const std::string played = sounds.Describe(); !played.empty()) {
    messages.Say("sounds played: " + played);
  }
  if (options.smsEveryMinutes > 0 && engine().IsSMSExist() != 0) {
    messages.Say("position reports for " + ReadText(engine().GetSMSAddress) + ": " +
                 std::to_string(reports.CountSent()));
  }
}

}  // namespace host
