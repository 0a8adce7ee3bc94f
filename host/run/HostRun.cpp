#include "run/HostRun.h"

#include <optional>
#include <utility>
#include <vector>

#include "base/HostError.h"
#include "handheld.h"
#include "run/OpenOutputs.h"
#include "run/SpeedLimits.h"

namespace host {

namespace {

constexpr DWORD LONG_WAIT_MS = 60000;
/// Interval at which a silent receiver and the title of a window are looked at.
constexpr DWORD SHORT_WAIT_MS = 500;

// Longest rest while the engine takes a recording as fast as it can; signals wait as long.
constexpr std::chrono::milliseconds DISPLAY_REST(16);
constexpr std::chrono::milliseconds OTHER_REST(50);

constexpr std::chrono::seconds BACKUP_INTERVAL(1);

PositionSource::Audience FindAudience(const Options& options, const ViewWindow* views) {
  const bool isWatched = ShowsTable(options) || (views != nullptr && views->HasDisplay());
  return isWatched ? PositionSource::Audience::WATCHING : PositionSource::Audience::ABSENT;
}

/// Lines of text are printed now and then.
bool NeedsEachUpdate(const Options& options, const ViewWindow* views) {
  const bool isShown = options.json || ShowsTable(options) || WantsPictures(options) ||
                       (views != nullptr && views->HasDisplay());
  return isShown || options.updates > 0 || options.keep || options.smsEveryMinutes > 0;
}

}  // namespace

HostRun::HostRun(const EngineLibrary& engine, const Options& options, const HomeFolder& home,
                 Choices& choices, std::unique_ptr<NmeaSource> recording, SignalWatcher& signals,
                 HomeLock& lock, StandardOutput& standard, Messages& messages)
    : engine(engine),
      options(options),
      choices(choices),
      signals(signals),
      lock(lock),
      standard(standard),
      messages(messages),
      trips(engine, options),
      window(engine().GetWndMessageID()),
      views(ViewWindow::Open(engine, options, window, messages)),
      web(WebService::Open(engine, options, home.GetPath(), window, views.get())),
      drive(options, home, messages),
      source(
          engine, options, std::move(recording), FindAudience(options, views.get()),
          [this] { window.Post(HostWindow::Event::TURN); },
          [this] { window.Post(HostWindow::Event::SOURCE_ENDED); }),
      needsEachUpdate(NeedsEachUpdate(options, views.get())),
      pictures(OpenPictures(options, engine, views.get())),
      reports(engine, options, messages),
      mqtt(engine, options, home, messages),
      summary(options, source, reports, messages),
      timeLeft(std::chrono::steady_clock::now()),
      progress(messages) {
  ApplySpeedLimits(engine(), options);
  trips.Resume(options, drive.GetTrips(), messages);
}

/// All threads that use the windows end before these are destroyed. Held messages are shown on the
/// ordinary screen.
HostRun::~HostRun() {
  signals.Stop();
  web.reset();
  source.Stop();
  engine().StopCallBack();
  output.reset();
  standard.Flush();
  messages.Release();
}

void HostRun::Run() {
  Start();
  signals.Start([this] { window.Post(HostWindow::Event::STOP); },
                [this] { window.Post(HostWindow::Event::RESIZE); });
  Loop();
  signals.Stop();
  Finish();
}

void HostRun::Start() {
  source.Open();
  choices.Keep(options);
  BackUpChoices();
  drive.Start(source);
  update.readouts = engine.GetReadouts();
  if (web) {
    web->Start(messages);
  }
  output = OpenOutput(options, engine, views.get(), standard, messages);
  summary.Start();
  if (CanLendTurns()) {
    LendTurns();
  }
  const HWND shown = views ? views->GetNotifiedWindow() : nullptr;
  if (engine().StartCallBack(shown != nullptr ? shown : window.GetHandle()) == 0) {
    throw HostError("the engine does not start reading from " + DescribeSource(options));
  }
  source.Start();
}

/// Windows belong to the host's thread.
bool HostRun::CanLendTurns() const {
  return source.HasTurns() && views == nullptr && pictures == nullptr && web == nullptr;
}

void HostRun::LendTurns() {
  lendsTurns = true;
  if (options.json) {
    standard.Gather();
  }
  source.LendTurns([this] { TakeLentTurn(); });
}

void HostRun::Loop() {
  const bool hasDisplay = views != nullptr && views->HasDisplay();
  if (hasDisplay) {
    lock.NoteWindow();
  }
  const bool hasTurns = source.HasTurns();
  const DWORD waitMs = hasDisplay || IsLive(options.source) ? SHORT_WAIT_MS : LONG_WAIT_MS;
  while (!standard.IsBroken() && !isComplete) {
    if (hasDisplay) {
      views->ShowTitle(update);
      if (lock.TakeCall()) {
        views->Raise();
      }
    }
    BackUpChoices();
    mqtt.SayNews();
    switch (window.Wait(hasTurns ? 0 : waitMs)) {
      case HostWindow::Event::UPDATE:
        update.number += lendsTurns ? 0 : 1;
        if (!hasTurns) {
          ShowUpdate();
        }
        break;
      case HostWindow::Event::TURN:
        TakeTurn();
        break;
      case HostWindow::Event::RESIZE:
        output->Redraw();
        break;
      case HostWindow::Event::REMOTE:
        web->TakeInputs();
        break;
      case HostWindow::Event::NOTHING:
        if (hasTurns) {
          // Waiting for messages would wake the host at every update.
          source.Rest(hasDisplay ? DISPLAY_REST : OTHER_REST);
          standard.Flush();
        } else {
          ShowNotice();
        }
        break;
      case HostWindow::Event::SOURCE_ENDED:
        hasEnded = true;
        return;
      case HostWindow::Event::STOP:
        return;
    }
  }
}

/// Keys and touches change the picture at any time.
void HostRun::BackUpChoices() {
  const auto now = std::chrono::steady_clock::now();
  if (now < nextBackup) {
    return;
  }
  nextBackup = now + BACKUP_INTERVAL;
  KeepShown();
  KeepReceiver();
  choices.BackUp();
}

void HostRun::KeepShown() {
  if (views) {
    choices.KeepPicture(views->GetPicture());
    choices.KeepTrack(options, engine().IsWriteKML() != 0);
    views->KeepChoices();
  }
}

void HostRun::KeepReceiver() {
  if (const std::optional<SearchSource::Receiver> found = source.GetFound()) {
    choices.KeepReceiver(found->device, found->baudRate);
  }
}

/// On the reader's thread, which cannot take the events of the updates.
void HostRun::TakeLentTurn() {
  update.number += window.CountUpdatesPosted();
  handheld::ForgetMessagesPosted();
  TakeTurn();
}

/// There is no new update when the engine has refused the position.
void HostRun::TakeTurn() {
  if (update.number > lastShown) {
    ShowUpdate();
  } else {
    source.Answer(update.number);
  }
}

void HostRun::ShowUpdate() {
  lastShown = update.number;
  engine.RefreshValues(update.readouts);
  const PositionFeed::Report report = source.GetReport();
  update.progress = report.progress;
  if (source.HasTurns()) {
    update.timeLeft = timeLeft.Describe(report.progress, std::chrono::steady_clock::now());
  }
  update.notice = Describe(report.reception);
  update.foundReceiver = report.reception.found;
  const std::vector<Fix> fixes = source.TakeFixes();
  update.fix = fixes.empty() ? std::nullopt : std::optional(fixes.back());
  trips.OnUpdate(fixes);
  update.moving = trips.GetMoving();
  output->Show(update);
  progress.Show(update);
  if (views) {
    views->ShowUpdate(update);
  }
  if (web) {
    web->Show(update);
  }
  reports.OnUpdate(update);
  mqtt.OnUpdate(update);
  summary.OnUpdate(update);
  drive.OnUpdate(trips);
  const bool isDrawn = views == nullptr || views->ShowsViews();
  const bool hasAllPictures = pictures != nullptr && isDrawn && pictures->OnUpdate();
  isComplete = hasAllPictures || update.number == options.updates;
  if (!needsEachUpdate && summary.HadPosition()) {
    source.LookSeldom();
  }
  // The device remembers every message; over a day that is a lot.
  handheld::ForgetMessagesPosted();
  if (!isComplete && !standard.IsBroken()) {
    source.Answer(update.number);
  }
}

/// Shows what is wrong with the reception. While the engine gets sentences of the silence, their
/// updates do that every second.
void HostRun::ShowNotice() {
  const Reception reception = source.GetReport().reception;
  const std::string notice = Describe(reception);
  const bool begins = notice.empty() != update.notice.empty();
  if (notice == update.notice || (source.FillsSilence() && !begins)) {
    return;
  }
  update.notice = notice;
  if (!notice.empty()) {
    update.fix = Fix();
  }
  update.foundReceiver = reception.found;
  output->Show(update);
  if (views) {
    views->ShowReception(update);
  }
  if (web) {
    web->Show(update);
  }
  mqtt.OnUpdate(update);
  summary.SayNews();
}

void HostRun::Finish() {
  web.reset();
  source.Stop();
  engine().StopCallBack();
  progress.Clear();
  update.readouts = engine.GetReadouts();
  output->Finish(update, engine.GetStates());
  standard.Flush();
  messages.Release();
  drive.Finish(trips);
  trips.Store();
  KeepReceiver();
  KeepShown();
  summary.Finish(update.number, hasEnded);
  if (pictures) {
    pictures->Finish();
  }
  mqtt.Finish(update);
}

}  // namespace host
