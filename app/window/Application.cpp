#include "window/Application.h"

#include <cstdint>

#include "window/FullScreen.h"
#include "window/Preferences.h"

namespace app {

namespace {

constexpr LPCWSTR CLASS_NAME = TEXT("FerolinApplication");
constexpr LPCWSTR TITLE = TEXT("Ferolin");

constexpr WPARAM SECOND_TIMER = 1;
constexpr WPARAM STEP_TIMER = 2;
constexpr UINT SECOND_MS = 1000;

Application* theApplication = nullptr;

// Coordinates are negative when a finger leaves the window.
POINT PointOf(LPARAM packed) {
  return {static_cast<std::int16_t>(packed & 0xFFFF),
          static_cast<std::int16_t>(packed >> 16 & 0xFFFF)};
}

}  // namespace

struct Application::Button {
  LPARAM code;
  void (Application::*answer)();
};

struct Application::Key {
  WPARAM key;
  void (Application::*answer)();
};

const Application::Button Application::BUTTONS[] = {
    {FEROLIN_BUTTON_PREVIOUS_VIEW, &Application::GoToPrevious},
    {FEROLIN_BUTTON_NEXT_VIEW, &Application::GoToNext},
    {FEROLIN_BUTTON_RESET_ALL, &Application::OpenReset},
    {FEROLIN_BUTTON_SEND_SMS, &Application::OpenSms},
    {FEROLIN_BUTTON_OPTIONS, &Application::OpenSettings},
    {FEROLIN_BUTTON_CLOSE, &Application::Quit},
    {FEROLIN_BUTTON_FLIP_HORIZONTALLY, &Application::ToggleMirror},
    {FEROLIN_BUTTON_ROTATE_SCREEN, &Application::ToggleTurn},
};

const Application::Key Application::KEYS[] = {
    {VK_LEFT, &Application::GoToPrevious},
    {VK_RIGHT, &Application::GoToNext},
    {VK_RETURN, &Application::OpenSettings},
    {'O', &Application::OpenSettings},
    {'H', &Application::ToggleMirror},
    {'V', &Application::ToggleFlip},
    {'R', &Application::ToggleTurn},
    {'I', &Application::ToggleColors},
    {'B', &Application::ToggleButtons},
    {'S', &Application::OpenSms},
    {VK_HOME, &Application::OpenReset},
    {VK_DELETE, &Application::OpenReset},
    {'Q', &Application::Quit},
};

Application::~Application() {
  if (window != nullptr) {
    DestroyWindow(window);
  }
}

bool Application::Start(HINSTANCE instance) {
  if (const HWND running = FindWindowW(CLASS_NAME, nullptr)) {
    SetForegroundWindow(running);
    return false;
  }
  if (!engine.IsLoaded() || !OpenWindow(instance)) {
    return false;
  }
  SetRussian(engine.IsRussianLocale() != 0);
  notification = engine.GetWndMessageID();
  views.emplace(engine, window);
  ApplyPreferences(session, *views);
  session.receiver.Start(window);
  pages.Open(PageId::WAITING);
  SetTimer(window, SECOND_TIMER, SECOND_MS, nullptr);
  ShowTop();
  return true;
}

bool Application::OpenWindow(HINSTANCE instance) {
  WNDCLASSW description = {};
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = &Application::WindowProc;
  description.hInstance = instance;
  description.lpszClassName = CLASS_NAME;
  RegisterClassW(&description);
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  window = CreateWindowExW(0, CLASS_NAME, TITLE, WS_POPUP | WS_VISIBLE, 0, 0, width, height,
                           nullptr, nullptr, instance, nullptr);
  if (window == nullptr) {
    return false;
  }
  theApplication = this;
  CoverScreen(window);
  SetForegroundWindow(window);
  return true;
}

/// Messages that come while the window is being made or no longer wanted are the system's.
LRESULT CALLBACK Application::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (theApplication == nullptr || theApplication->window != window ||
      !theApplication->views.has_value()) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return theApplication->OnMessage(message, wParam, lParam);
}

LRESULT Application::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == notification) {
    OnNotification(lParam);
    return 0;
  }
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      OnPress(PointOf(lParam), message == WM_LBUTTONDBLCLK);
      return 0;
    case WM_MOUSEMOVE:
      OnDrag(PointOf(lParam));
      return 0;
    case WM_LBUTTONUP:
      OnRelease(PointOf(lParam));
      return 0;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_ERASEBKGND:
      return 1;  // everything is drawn over
    case WM_SIZE:
      ShowTop();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != 0) {
        CoverScreen(window);
      }
      return 0;
    case WM_SETTINGCHANGE:  // the screen may have been turned
      MoveWindow(window, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), TRUE);
      return 0;
    case WM_POWERBROADCAST:
      if (wParam == PBT_APMRESUMEAUTOMATIC) {
        session.receiver.Reopen();
      }
      return TRUE;
    case WM_DESTROY:
      OnDestroy();
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

void Application::OnNotification(LPARAM code) {
  if (code == FEROLIN_BUTTON_NONE) {
    OnUpdate();
  } else {
    OnButton(code);
  }
}

void Application::OnUpdate() {
  const bool isFirst = session.receiver.OnUpdate();
  if (isFirst && pages.IsOpen(PageId::WAITING)) {
    LeaveWaiting();
    return;
  }
  Screen* page = pages.GetTop();
  if (page != nullptr && page->IsLive()) {
    DrawPage(*page);
  }
}

/// A page over the waiting one stays open.
void Application::LeaveWaiting() {
  pages.Close(PageId::WAITING);
  if (pages.GetTop() == nullptr) {
    ShowTop();
  }
}

void Application::OnButton(LPARAM code) {
  if (!views->AreShown()) {
    return;
  }
  views->NoteButton();
  for (const Button& button : BUTTONS) {
    if (button.code == code) {
      (this->*button.answer)();
    }
  }
}

void Application::OnPress(POINT point, bool isDoubleClick) {
  isPressed = true;
  SetCapture(window);
  if (Screen* page = pages.GetTop()) {
    page->OnPress(point);
    SetTimer(window, STEP_TIMER, Screen::STEP_MS, nullptr);
    DrawPage(*page);
  } else if (isDoubleClick) {
    views->OnDoubleClick(point);
  } else {
    views->OnPress(point);
  }
}

void Application::OnDrag(POINT point) {
  if (!isPressed) {
    return;
  }
  if (Screen* page = pages.GetTop()) {
    page->OnDrag(point);
    DrawPage(*page);
  } else {
    views->OnDrag(point);
  }
}

/// A release without a press belongs to a page that is closed already.
void Application::OnRelease(POINT point) {
  if (!isPressed) {
    return;
  }
  isPressed = false;
  ReleaseCapture();
  if (Screen* page = pages.GetTop()) {
    ApplyOutcome(page->OnRelease(point));
    return;
  }
  views->OnRelease(point);
  if (views->AreShown() && session.receiver.IsSilent()) {
    DrawNotice();
  }
}

void Application::OnKey(WPARAM key) {
  if (Screen* page = pages.GetTop()) {
    ApplyOutcome(page->OnKey(key));
  } else {
    OnViewKey(key);
  }
}

void Application::OnViewKey(WPARAM key) {
  for (const Key& each : KEYS) {
    if (each.key == key) {
      (this->*each.answer)();
      return;
    }
  }
}

void Application::OnTimer(WPARAM timer) {
  if (timer == SECOND_TIMER) {
    OnSecond();
    return;
  }
  Screen* page = pages.GetTop();
  if (page != nullptr && page->IsMoving()) {
    page->OnStep();
    DrawPage(*page);
  } else if (page == nullptr || !isPressed) {
    KillTimer(window, STEP_TIMER);
  }
}

void Application::OnSecond() {
  if (sleepWatch.HasSlept()) {
    session.receiver.Reopen();
  }
  session.receiver.OnSecond();
  if (pages.GetTop() == nullptr) {
    if (session.receiver.IsSilent()) {
      DrawNotice();
    }
  } else if (pages.GetTop()->IsLive()) {
    DrawPage(*pages.GetTop());
  }
}

void Application::OnPaint() {
  PAINTSTRUCT paint = {};
  BeginPaint(window, &paint);
  EndPaint(window, &paint);
  if (Screen* page = pages.GetTop()) {
    DrawPage(*page);
    return;
  }
  views->PresentAgain();
  if (session.receiver.IsSilent()) {
    DrawNotice();
  }
}

/// The engine keeps the choices when it is unloaded.
void Application::OnDestroy() {
  KillTimer(window, SECOND_TIMER);
  KillTimer(window, STEP_TIMER);
  views->Hide();
  engine.StopCallBack();
  KeepPreferences(session, *views);
  pages.CloseAll();
  views.reset();
  window = nullptr;
  theApplication = nullptr;
  PostQuitMessage(0);
}

void Application::OpenPage(PageId page) {
  pages.Open(page);
  ShowTop();
}

void Application::ApplyOutcome(const Screen::Outcome& outcome) {
  if (outcome.open != PageId::NONE) {
    pages.Open(outcome.open);
  } else if (outcome.close) {
    pages.CloseTop();
  }
  if (session.wantsViews) {
    session.wantsViews = false;
    pages.Close(PageId::WAITING);
  }
  if (session.wantsToQuit) {
    Quit();
    return;
  }
  ShowTop();
}

void Application::ShowTop() {
  if (Screen* page = pages.GetTop()) {
    if (views->AreShown()) {
      views->Hide();
    }
    DrawPage(*page);
  } else if (views->AreShown()) {
    views->Redraw();
  } else {
    views->Show();
  }
}

void Application::BeginFrame() {
  RECT client = {};
  GetClientRect(window, &client);
  const HDC dc = GetDC(window);
  const int dpi = GetDeviceCaps(dc, LOGPIXELSX);
  ReleaseDC(window, dc);
  painter.Begin(client.right, client.bottom, dpi);
}

void Application::DrawPage(Screen& page) {
  BeginFrame();
  page.Draw(painter);
  painter.ShowIn(window, painter.GetFrameRect());
}

/// A strip over the middle of the view. The next frame of the engine covers it.
void Application::DrawNotice() {
  constexpr int HEIGHT = 44;
  constexpr Painter::TextSize TEXT_SIZE = {16, 10};
  BeginFrame();
  const Theme& theme = session.isLightTheme ? LIGHT_THEME : DARK_THEME;
  const int top = (painter.GetHeight() - painter.PixelsFrom(HEIGHT)) / 2;
  const RECT strip = {0, top, painter.GetWidth(), top + painter.PixelsFrom(HEIGHT)};
  const int middle = (strip.top + strip.bottom) / 2;
  const int margin = painter.PixelsFrom(4);
  painter.GetShapes().DrawFrame(strip, 0, painter.PixelsFrom(1), theme.warning, theme.row);
  painter.DrawText(GetWord(session.receiver.GetTrouble()),
                   {margin, strip.top + margin / 2, painter.GetWidth() - margin, middle}, TEXT_SIZE,
                   theme.warning, Painter::Align::CENTER);
  painter.DrawText(session.receiver.Describe(),
                   {margin, middle, painter.GetWidth() - margin, strip.bottom - margin / 2},
                   TEXT_SIZE, theme.text, Painter::Align::CENTER);
  painter.ShowIn(window, strip);
}

void Application::ToggleMirror() {
  engine.SetInvertHorz(engine.GetInvertHorz() == 0 ? 1 : 0);
  views->PresentAgain();
}

void Application::ToggleFlip() {
  engine.SetInvertVert(engine.GetInvertVert() == 0 ? 1 : 0);
  views->PresentAgain();
}

void Application::ToggleColors() {
  engine.SetInvertColor(engine.GetInvertColor() == 0 ? 1 : 0);
  views->PresentAgain();
}

/// The last frame has the old shape.
void Application::ToggleTurn() {
  engine.SetInvertOrient(engine.GetInvertOrient() == 0 ? 1 : 0);
  views->Redraw();
}

void Application::OpenSms() {
  if (engine.IsSMSExist() != 0) {
    OpenPage(PageId::SMS);
  }
}

void Application::Quit() {
  PostMessageW(window, WM_CLOSE, 0, 0);
}

int RunApplication(HINSTANCE instance) {
  Application application;
  if (!application.Start(instance)) {
    return 1;
  }
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace app
