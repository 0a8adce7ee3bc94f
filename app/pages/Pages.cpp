#include "pages/Pages.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/CodePage.h"
#include "base/Format.h"
#include "pages/Session.h"
#include "receiver/SerialPorts.h"

namespace app {

namespace {

/// Those of receivers first, then the slow ones that few use.
constexpr int BAUD_RATES[] = {
    4800, 9600, 19200, 38400, 57600, 115200, 2400, 300, Receiver::KEEP_PORT_SPEED};

WideString Number(int value) {
  return ferolin::Widen(ferolin::Format("%i", value));
}

WideString WithUnit(int value, Word unit) {
  return Number(value) + TEXT(" ") + GetWord(unit);
}

/// The next multiple of `step` in that direction, within the range.
int Step(int value, int direction, int step, int lowest, int highest) {
  const int next =
      direction > 0 ? value / step * step + step : (value + step - 1) / step * step - step;
  return std::clamp(next, lowest, highest);
}

// Picture

int IsMirrored(const Session& session, int) {
  return session.engine.GetInvertHorz();
}
void SetMirrored(Session& session, int, int value) {
  session.engine.SetInvertHorz(value);
}
int IsUpsideDown(const Session& session, int) {
  return session.engine.GetInvertVert();
}
void SetUpsideDown(Session& session, int, int value) {
  session.engine.SetInvertVert(value);
}
int IsTurned(const Session& session, int) {
  return session.engine.GetInvertOrient();
}
void SetTurned(Session& session, int, int value) {
  session.engine.SetInvertOrient(value);
}
int HasInvertedColors(const Session& session, int) {
  return session.engine.GetInvertColor();
}
void SetInvertedColors(Session& session, int, int value) {
  session.engine.SetInvertColor(value);
}
int IsLightTheme(const Session& session, int) {
  return session.isLightTheme ? 1 : 0;
}
void SetLightTheme(Session& session, int, int value) {
  session.isLightTheme = value != 0;
}

// Settings

int IsScreenKeptOn(const Session& session, int) {
  return session.engine.IsAlwaysTurnOn();
}
void SetScreenKeptOn(Session& session, int, int value) {
  session.engine.SetAlwaysTurnOn(static_cast<DWORD>(value));
}
int IsTrackWritten(const Session& session, int) {
  return session.engine.IsWriteKML();
}
void SetTrackWritten(Session& session, int, int value) {
  session.engine.SetWriteKML(value);
}
int IsBeeping(const Session& session, int) {
  return session.engine.GetBeepOnZero();
}
void SetBeeping(Session& session, int, int value) {
  session.engine.SetBeepOnZero(value);
}
void Quit(Session& session, int, int) {
  session.wantsToQuit = true;
}
int IsSmsThere(const Session& session, int) {
  return session.engine.IsSMSExist();
}
WideString DescribeSms(const Session& session, int) {
  return session.engine.IsSMSExist() != 0 ? WideString() : GetWord(Word::NOT_AVAILABLE);
}
WideString DescribeReceiver(const Session& session, int) {
  return session.receiver.Describe();
}

/// "60, 90 km/h": the limits that are on.
WideString DescribeLimits(const Session& session, int) {
  WideString text;
  for (int limit = 0; limit < session.engine.GetSpeedEventsCount(); ++limit) {
    if (session.engine.GetUseEventSound(limit) != 0) {
      text += (text.empty() ? WideString() : TEXT(", ")) +
              Number(session.engine.GetEventSpeedLimit(limit));
    }
  }
  return text.empty() ? text : text + TEXT(" ") + GetWord(Word::KMH);
}

// Speed limits

int IsLimitOn(const Session& session, int limit) {
  return session.engine.GetUseEventSound(limit);
}
void ChangeLimit(const Session& session, int limit, int speed, int band, int isOn) {
  session.engine.SetSpeedEvent(limit, speed, band, isOn);
}
void SetLimitOn(Session& session, int limit, int value) {
  ChangeLimit(session, limit, session.engine.GetEventSpeedLimit(limit),
              session.engine.GetEventSpeedInter(limit), value);
}
WideString DescribeLimit(const Session& session, int limit) {
  return WithUnit(session.engine.GetEventSpeedLimit(limit), Word::KMH);
}
void StepLimit(Session& session, int limit, int direction) {
  constexpr int STEP = 5;
  constexpr int HIGHEST = 300;
  ChangeLimit(session, limit,
              Step(session.engine.GetEventSpeedLimit(limit), direction, STEP, STEP, HIGHEST),
              session.engine.GetEventSpeedInter(limit), session.engine.GetUseEventSound(limit));
}
/// The end of the band says more than its width.
WideString DescribeBand(const Session& session, int limit) {
  return WithUnit(
      session.engine.GetEventSpeedLimit(limit) + session.engine.GetEventSpeedInter(limit),
      Word::KMH);
}
void StepBand(Session& session, int limit, int direction) {
  constexpr int STEP = 5;
  constexpr int WIDEST = 100;
  ChangeLimit(session, limit, session.engine.GetEventSpeedLimit(limit),
              Step(session.engine.GetEventSpeedInter(limit), direction, STEP, 0, WIDEST),
              session.engine.GetUseEventSound(limit));
}

// Receiver

int IsService(const Session& session, int) {
  return session.receiver.UsesService() ? 1 : 0;
}
int IsPortUsed(const Session& session, int) {
  return session.receiver.UsesService() ? 0 : 1;
}
void UseService(Session& session, int, int) {
  session.receiver.UseService(true);
}
void UsePort(Session& session, int, int) {
  session.receiver.UseService(false);
}
WideString DescribePort(const Session& session, int) {
  const WideString name = session.engine.GetPortName();
  return name.empty() ? GetWord(Word::NO_PORT_CHOSEN) : name;
}
WideString DescribeBaudRate(int baudRate) {
  return baudRate > 0 ? Number(baudRate) : GetWord(Word::AS_SET);
}
WideString DescribeCurrentBaudRate(const Session& session, int) {
  return DescribeBaudRate(session.receiver.GetBaudRate());
}
WideString NamePort(const Session&, int number) {
  return TEXT("COM") + Number(number);
}
int IsPortChosen(const Session& session, int number) {
  return session.engine.GetPortName() == NamePort(session, number) ? 1 : 0;
}
void ChoosePort(Session& session, int number, int) {
  session.receiver.SetPort(NamePort(session, number));
}
WideString NameBaudRate(const Session&, int baudRate) {
  return DescribeBaudRate(baudRate);
}
int IsBaudRateChosen(const Session& session, int baudRate) {
  return session.receiver.GetBaudRate() == baudRate ? 1 : 0;
}
void ChooseBaudRate(Session& session, int baudRate, int) {
  session.receiver.SetBaudRate(baudRate);
}

// Read-outs

WideString NameReadout(const Session& session, int sensor) {
  return session.engine.GetNameOfSensor(sensor);
}
WideString DescribeReadout(const Session& session, int sensor) {
  const WideString value = session.engine.GetValueOfSensor(sensor);
  constexpr LPCWSTR MISSING = TEXT("\u2014");
  return value.empty() ? MISSING : value;
}
void ResetReadout(Session& session, int sensor, int) {
  session.engine.ResetSensorValue(sensor);
}
void ResetAll(Session& session, int, int) {
  session.ResetAll();
}

// SMS

/// One number fits into a row, several do not.
WideString DescribeRecipients(const Session& session, int) {
  const WideString recipients = session.engine.GetSmsRecipients();
  const int commas = static_cast<int>(std::ranges::count(recipients, WCHAR{','}));
  if (recipients.empty()) {
    return GetWord(Word::NO_RECIPIENTS);
  }
  return commas == 0 ? recipients : GetWord(Word::NUMBERS) + TEXT(" ") + Number(commas + 1);
}
int IsSmsAutomatic(const Session& session, int) {
  return session.engine.IsSMSEnabled();
}
void SetSmsAutomatic(Session& session, int, int value) {
  Session::SmsChoices choices = session.GetSmsChoices();
  choices.isAutomatic = value != 0;
  session.SetSmsChoices(choices);
}
WideString DescribeInterval(const Session& session, int) {
  return WithUnit(session.engine.GetSMSInterval(), Word::MINUTES);
}
/// Minute by minute up to ten, then by fives.
void StepInterval(Session& session, int, int direction) {
  constexpr int LAST_SINGLE = 10;
  constexpr int LARGE_STEP = 5;
  constexpr int LONGEST = 120;
  Session::SmsChoices choices = session.GetSmsChoices();
  const int minutes = choices.intervalMinutes;
  const bool isSingle = direction > 0 ? minutes < LAST_SINGLE : minutes <= LAST_SINGLE;
  choices.intervalMinutes = Step(minutes, direction, isSingle ? 1 : LARGE_STEP, 1, LONGEST);
  session.SetSmsChoices(choices);
}
int IsSmsAfterMoving(const Session& session, int) {
  return session.engine.IsSMSSendIfChanged();
}
void SetSmsAfterMoving(Session& session, int, int value) {
  Session::SmsChoices choices = session.GetSmsChoices();
  choices.onlyAfterMoving = value != 0;
  session.SetSmsChoices(choices);
}
int CanSendSms(const Session& session, int) {
  return session.engine.IsSMSExist() != 0 && !session.engine.GetSmsRecipients().empty() ? 1 : 0;
}
WideString DescribeSending(const Session& session, int) {
  return session.isReportSent ? GetWord(Word::SENT) : WideString();
}
void SendSms(Session& session, int, int) {
  session.engine.SendSMS();
  session.isReportSent = true;
}
WideString DescribeMessage(const Session& session, int) {
  return session.engine.GetSmsText();
}

// About and waiting

WideString DescribeVersion(const Session&, int) {
  return TEXT("Ferolin ") + ferolin::Widen(FEROLIN_VERSION);
}
WideString DescribeLicense(const Session&, int) {
  return GetWord(Word::MIT_LICENSE);
}
WideString DescribeTrouble(const Session& session, int) {
  return GetWord(session.receiver.GetTrouble());
}
int CanShowViews(const Session& session, int) {
  return session.receiver.HasUpdates() ? 1 : 0;
}
void ShowViews(Session& session, int, int) {
  session.wantsViews = true;
}

// The tables

constexpr Row WAITING_ROWS[] = {
    {.kind = RowKind::READOUT, .getLabel = &DescribeReceiver, .getText = &DescribeTrouble},
    {.kind = RowKind::GAP},
    {.kind = RowKind::LINK,
     .label = Word::RECEIVER,
     .icon = Icon::RECEIVER,
     .page = PageId::RECEIVER},
    {.kind = RowKind::LINK,
     .label = Word::SETTINGS,
     .icon = Icon::LIMITS,
     .page = PageId::SETTINGS},
    {.kind = RowKind::ACTION,
     .label = Word::SHOW_VIEWS,
     .icon = Icon::SCREEN,
     .set = &ShowViews,
     .isEnabled = &CanShowViews},
    {.kind = RowKind::ACTION, .label = Word::QUIT, .icon = Icon::QUIT, .set = &Quit},
};

constexpr Row SETTINGS_ROWS[] = {
    {.kind = RowKind::LINK,
     .label = Word::SPEED_LIMITS,
     .icon = Icon::LIMITS,
     .getText = &DescribeLimits,
     .page = PageId::LIMITS},
    {.kind = RowKind::LINK,
     .label = Word::READOUTS,
     .icon = Icon::READOUTS,
     .page = PageId::READOUTS},
    {.kind = RowKind::LINK,
     .label = Word::RESET_READOUTS,
     .icon = Icon::RESET,
     .page = PageId::RESET},
    {.kind = RowKind::LINK,
     .label = Word::RECEIVER,
     .icon = Icon::RECEIVER,
     .getText = &DescribeReceiver,
     .page = PageId::RECEIVER},
    {.kind = RowKind::LINK, .label = Word::PICTURE, .icon = Icon::PICTURE, .page = PageId::PICTURE},
    {.kind = RowKind::SWITCH,
     .label = Word::KEEP_SCREEN_ON,
     .icon = Icon::SCREEN,
     .get = &IsScreenKeptOn,
     .set = &SetScreenKeptOn},
    {.kind = RowKind::SWITCH,
     .label = Word::WRITE_TRACK,
     .icon = Icon::TRACK,
     .get = &IsTrackWritten,
     .set = &SetTrackWritten},
    {.kind = RowKind::SWITCH,
     .label = Word::BEEP_AT_STANDSTILL,
     .icon = Icon::BEEP,
     .get = &IsBeeping,
     .set = &SetBeeping},
    {.kind = RowKind::LINK,
     .label = Word::POSITION_BY_SMS,
     .icon = Icon::MESSAGE,
     .getText = &DescribeSms,
     .isEnabled = &IsSmsThere,
     .page = PageId::SMS},
    {.kind = RowKind::SWITCH,
     .label = Word::LIGHT_THEME,
     .icon = Icon::THEME,
     .get = &IsLightTheme,
     .set = &SetLightTheme},
    {.kind = RowKind::LINK, .label = Word::ABOUT, .icon = Icon::ABOUT, .page = PageId::ABOUT},
    {.kind = RowKind::ACTION, .label = Word::QUIT, .icon = Icon::QUIT, .set = &Quit},
};

constexpr Row RECEIVER_ROWS[] = {
    {.kind = RowKind::CHOICE, .label = Word::GPS_SERVICE, .get = &IsService, .set = &UseService},
    {.kind = RowKind::CHOICE, .label = Word::SERIAL_PORT, .get = &IsPortUsed, .set = &UsePort},
    {.kind = RowKind::GAP},
    {.kind = RowKind::LINK,
     .label = Word::PORT,
     .getText = &DescribePort,
     .isEnabled = &IsPortUsed,
     .page = PageId::PORT},
    {.kind = RowKind::LINK,
     .label = Word::BAUD_RATE,
     .getText = &DescribeCurrentBaudRate,
     .isEnabled = &IsPortUsed,
     .page = PageId::BAUD_RATE},
};

constexpr Row PICTURE_ROWS[] = {
    {.kind = RowKind::SWITCH, .label = Word::MIRROR, .get = &IsMirrored, .set = &SetMirrored},
    {.kind = RowKind::SWITCH,
     .label = Word::UPSIDE_DOWN,
     .get = &IsUpsideDown,
     .set = &SetUpsideDown},
    {.kind = RowKind::SWITCH, .label = Word::TURN, .get = &IsTurned, .set = &SetTurned},
    {.kind = RowKind::SWITCH,
     .label = Word::INVERT_COLORS,
     .get = &HasInvertedColors,
     .set = &SetInvertedColors},
    {.kind = RowKind::SWITCH,
     .label = Word::LIGHT_THEME,
     .get = &IsLightTheme,
     .set = &SetLightTheme},
};

constexpr Row SMS_ROWS[] = {
    {.kind = RowKind::LINK,
     .label = Word::RECIPIENTS,
     .getText = &DescribeRecipients,
     .page = PageId::RECIPIENTS},
    {.kind = RowKind::SWITCH,
     .label = Word::SEND_AUTOMATICALLY,
     .get = &IsSmsAutomatic,
     .set = &SetSmsAutomatic},
    {.kind = RowKind::STEPPER,
     .label = Word::INTERVAL,
     .getText = &DescribeInterval,
     .set = &StepInterval},
    {.kind = RowKind::SWITCH,
     .label = Word::ONLY_AFTER_MOVING,
     .get = &IsSmsAfterMoving,
     .set = &SetSmsAfterMoving},
    {.kind = RowKind::ACTION,
     .label = Word::SEND_NOW,
     .getText = &DescribeSending,
     .set = &SendSms,
     .isEnabled = &CanSendSms},
    {.kind = RowKind::READOUT, .label = Word::MESSAGE_TEXT, .getText = &DescribeMessage},
};

constexpr Row ABOUT_ROWS[] = {
    {.kind = RowKind::READOUT, .label = Word::VERSION, .getText = &DescribeVersion},
    {.kind = RowKind::READOUT, .label = Word::LICENSE, .getText = &DescribeLicense},
};

// Rows that there are as many of as there are limits, ports, read-outs.

constexpr Row LIMIT_ROWS[] = {
    {.kind = RowKind::SWITCH, .get = &IsLimitOn, .set = &SetLimitOn},
    {.kind = RowKind::STEPPER, .label = Word::LIMIT, .getText = &DescribeLimit, .set = &StepLimit},
    {.kind = RowKind::STEPPER,
     .label = Word::REPEAT_UP_TO,
     .getText = &DescribeBand,
     .set = &StepBand},
    {.kind = RowKind::GAP},
};
constexpr Row READOUT_ROW = {
    .kind = RowKind::READOUT, .getLabel = &NameReadout, .getText = &DescribeReadout};
constexpr Row RESET_ALL_ROW = {
    .kind = RowKind::ACTION, .label = Word::RESET_ALL, .set = &ResetAll, .asksAgain = true};
constexpr Row RESET_ROW = {.kind = RowKind::ACTION,
                           .getLabel = &NameReadout,
                           .getText = &DescribeReadout,
                           .set = &ResetReadout,
                           .asksAgain = true};
constexpr Row PORT_ROW = {
    .kind = RowKind::CHOICE, .getLabel = &NamePort, .get = &IsPortChosen, .set = &ChoosePort};
constexpr Row NO_PORTS_ROW = {.kind = RowKind::HEADING, .label = Word::NO_PORTS};
constexpr Row BAUD_RATE_ROW = {.kind = RowKind::CHOICE,
                               .getLabel = &NameBaudRate,
                               .get = &IsBaudRateChosen,
                               .set = &ChooseBaudRate};

Row WithArgument(const Row& row, int argument) {
  Row copy = row;
  copy.argument = argument;
  return copy;
}

/// Of the engine's limits those that it keeps in its settings.
Rows MakeLimitRows() {
  constexpr Word NAMES[] = {Word::LIMIT_1, Word::LIMIT_2, Word::LIMIT_3};
  Rows rows;
  int limit = 0;
  for (const Word name : NAMES) {
    for (const Row& row : LIMIT_ROWS) {
      rows.push_back(WithArgument(row, limit));
      if (row.kind == RowKind::SWITCH) {
        rows.back().label = name;
      }
    }
    ++limit;
  }
  rows.pop_back();
  return rows;
}

Rows MakeReadoutRows(const Session& session) {
  Rows rows;
  for (int sensor = 0; sensor < session.engine.GetSensorsCount(); ++sensor) {
    rows.push_back(WithArgument(READOUT_ROW, sensor));
  }
  return rows;
}

/// Only what adds up over a trip can be started afresh.
Rows MakeResetRows(const Session& session) {
  Rows rows = {RESET_ALL_ROW, {.kind = RowKind::GAP}};
  for (int sensor = 0; sensor < session.engine.GetSensorsCount(); ++sensor) {
    if (session.engine.IsSensorSaveable(sensor) != 0) {
      rows.push_back(WithArgument(RESET_ROW, sensor));
    }
  }
  return rows;
}

Rows MakePortRows() {
  Rows rows;
  for (const int number : FindSerialPorts()) {
    rows.push_back(WithArgument(PORT_ROW, number));
  }
  if (rows.empty()) {
    rows.push_back(NO_PORTS_ROW);
  }
  return rows;
}

Rows MakeBaudRateRows() {
  Rows rows;
  for (const int baudRate : BAUD_RATES) {
    rows.push_back(WithArgument(BAUD_RATE_ROW, baudRate));
  }
  return rows;
}

Rows RowsOf(std::span<const Row> table) {
  return {table.begin(), table.end()};
}

}  // namespace

Word GetTitle(PageId page) {
  switch (page) {
    case PageId::WAITING:
      return Word::WAITING;
    case PageId::SETTINGS:
      return Word::SETTINGS;
    case PageId::LIMITS:
      return Word::SPEED_LIMITS;
    case PageId::READOUTS:
      return Word::READOUTS;
    case PageId::RESET:
      return Word::RESET_READOUTS;
    case PageId::RECEIVER:
      return Word::RECEIVER;
    case PageId::PORT:
      return Word::PORT;
    case PageId::BAUD_RATE:
      return Word::BAUD_RATE;
    case PageId::PICTURE:
      return Word::PICTURE;
    case PageId::SMS:
      return Word::POSITION_BY_SMS;
    case PageId::RECIPIENTS:
      return Word::RECIPIENTS;
    case PageId::ABOUT:
      return Word::ABOUT;
    case PageId::NONE:
      break;
  }
  return Word::NONE;
}

Rows MakeRows(PageId page, const Session& session) {
  switch (page) {
    case PageId::WAITING:
      return RowsOf(WAITING_ROWS);
    case PageId::SETTINGS:
      return RowsOf(SETTINGS_ROWS);
    case PageId::LIMITS:
      return MakeLimitRows();
    case PageId::READOUTS:
      return MakeReadoutRows(session);
    case PageId::RESET:
      return MakeResetRows(session);
    case PageId::RECEIVER:
      return RowsOf(RECEIVER_ROWS);
    case PageId::PORT:
      return MakePortRows();
    case PageId::BAUD_RATE:
      return MakeBaudRateRows();
    case PageId::PICTURE:
      return RowsOf(PICTURE_ROWS);
    case PageId::SMS:
      return RowsOf(SMS_ROWS);
    case PageId::ABOUT:
      return RowsOf(ABOUT_ROWS);
    case PageId::RECIPIENTS:
    case PageId::NONE:
      break;
  }
  return {};
}

}  // namespace app
