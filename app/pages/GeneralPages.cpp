#include "base/CodePage.h"
#include "engine/ColorTheme.h"
#include "pages/PageRows.h"
#include "pages/RowTools.h"
#include "pages/Session.h"

namespace app {

namespace {

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

/// Names of the files in the folder "themes". The first one has the colours of a first start.
constexpr LPCWSTR THEMES[] = {TEXT("standard"), TEXT("day"), TEXT("night")};
int IsThemeChosen(const Session& session, int theme) {
  const WideString chosen = session.engine.ReadSetting(theme_keys::CHOSEN);
  return (chosen.empty() ? theme == 0 : chosen == THEMES[theme]) ? 1 : 0;
}
void ChooseTheme(Session& session, int theme, int) {
  session.engine.KeepSetting(theme_keys::CHOSEN, THEMES[theme]);
  session.engine.KeepSetting(theme_keys::TAKEN, WideString());
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

// About and waiting

WideString DescribeVersion(const Session&, int) {
  return TEXT("Ferolin ") + ferolin::Widen(FEROLIN_VERSION);
}
WideString DescribeLicense(const Session&, int) {
  return GetWord(Word::MIT_LICENSE);
}
WideString DescribeTrouble(const Session& session, int) {
  return session.receiver.DescribeTrouble();
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
    {.kind = RowKind::HEADING, .label = Word::FROM_NEXT_START},
    {.kind = RowKind::CHOICE,
     .label = Word::STANDARD_COLORS,
     .get = &IsThemeChosen,
     .set = &ChooseTheme,
     .argument = 0},
    {.kind = RowKind::CHOICE,
     .label = Word::DAY_COLORS,
     .get = &IsThemeChosen,
     .set = &ChooseTheme,
     .argument = 1},
    {.kind = RowKind::CHOICE,
     .label = Word::NIGHT_COLORS,
     .get = &IsThemeChosen,
     .set = &ChooseTheme,
     .argument = 2},
};

constexpr Row ABOUT_ROWS[] = {
    {.kind = RowKind::READOUT, .label = Word::VERSION, .getText = &DescribeVersion},
    {.kind = RowKind::READOUT, .label = Word::LICENSE, .getText = &DescribeLicense},
};

}  // namespace

Rows MakeWaitingRows(const Session&) {
  return RowsOf(WAITING_ROWS);
}

Rows MakeSettingsRows(const Session&) {
  return RowsOf(SETTINGS_ROWS);
}

Rows MakePictureRows(const Session&) {
  return RowsOf(PICTURE_ROWS);
}

Rows MakeAboutRows(const Session&) {
  return RowsOf(ABOUT_ROWS);
}

}  // namespace app
