#include "window/Application.h"

#include <cstdint>
#include <utility>

#include "window/FullScreen.h"
#include "window/Notice.h"
#include "window/Preferences.h"

namespace app {

namespace {

constexpr LPCWSTR CLASS_NAME = TEXT("FerolinApplication");
constexpr LPCWSTR TITLE = TEXT("Ferolin");

constexpr WPARAM SECOND_TIMER = 1;
constexpr WPARAM STEP_TIMER = 2;
constexpr UINT SECOND_TIMER_MS = 1000;

Application* theApplication = nullptr;

// Coordinates are negative when a finger leaves the window.
POINT PointOf(LPARAM packed) {
  return {static_cast<std::int16_t>(packed & 0xFFFF),
          static_cast<std::int16_t>(packed >> 16 & 0xFFFF)};
}

}  // namespace

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
  if (surroundings == nullptr) {
    SetTimer(window, SECOND_TIMER, SECOND_TIMER_MS, nullptr);
  }
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
    case WM_CLOSE:
      OnClose();
      return 0;
    case WM_DESTROY:
      OnDestroy();
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

void Application::OnNotification(LPARAM code) {
  if (code != FEROLIN_BUTTON_NONE) {
    if (views->AreShown()) {
      views->NoteButton();
      Do(FindButtonCommand(code));
    }
  } else if (surroundings != nullptr) {
    surroundings->OnUpdate();
  } else {
    ShowUpdate();
  }
}

void Application::ShowUpdate() {
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
  if (views->AreShown()) {
    ShowNotice();
  }
}

/// Some keys of a window that another program shows answer over its pages, too. There is nothing to
/// go back to from the waiting page.
void Application::OnKey(WPARAM key) {
  const Command command = FindKeyCommand(key);
  const bool isAboutWindow = command == Command::TOGGLE_FULL_SCREEN || command == Command::QUIT ||
                             (command == Command::LEAVE && pages.IsTop(PageId::WAITING));
  Screen* page = pages.GetTop();
  if (page == nullptr || (surroundings != nullptr && isAboutWindow)) {
    Do(command);
  } else {
    ApplyOutcome(page->OnKey(key));
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
  ShowReception();
}

void Application::ShowReception() {
  Screen* page = pages.GetTop();
  if (page == nullptr) {
    ShowNotice();
  } else if (page->IsLive()) {
    DrawPage(*page);
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
  ShowNotice();
}

void Application::OnClose() {
  if (surroundings != nullptr) {
    surroundings->OnQuit();
  } else {
    DestroyWindow(window);
  }
}

/// The engine keeps the choices when it is unloaded.
void Application::OnDestroy() {
  KillTimer(window, SECOND_TIMER);
  KillTimer(window, STEP_TIMER);
  views->Hide();
  engine.StopCallBack();
  KeepChoices();
  pages.CloseAll();
  views.reset();
  window = nullptr;
  theApplication = nullptr;
  if (surroundings == nullptr) {
    PostQuitMessage(0);
  }
}

void Application::KeepChoices() const {
  KeepPreferences(session, *views);
}

void Application::Do(Command command) {
  switch (command) {
    case Command::PREVIOUS_VIEW:
      views->GoBy(-1);
      break;
    case Command::NEXT_VIEW:
      views->GoBy(1);
      break;
    case Command::OPEN_SETTINGS:
      OpenPage(PageId::SETTINGS);
      break;
    case Command::OPEN_RESET:
      OpenPage(PageId::RESET);
      break;
    case Command::OPEN_SMS:
      if (engine.IsSMSExist() != 0) {
        OpenPage(PageId::SMS);
      }
      break;
    case Command::MIRROR:
      views->ToggleMirror();
      break;
    case Command::FLIP:
      views->ToggleFlip();
      break;
    case Command::TURN:
      views->ToggleTurn();
      break;
    case Command::INVERT_COLORS:
      views->ToggleColors();
      break;
    case Command::TOGGLE_BUTTONS:
      views->ToggleButtons();
      break;
    case Command::TOGGLE_FULL_SCREEN:
      if (surroundings != nullptr) {
        surroundings->ToggleFullScreen();
      }
      break;
    case Command::LEAVE:
      if (surroundings != nullptr) {
        Quit();
      }
      break;
    case Command::QUIT:
      Quit();
      break;
    case Command::NONE:
      break;
  }
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
  if (std::exchange(session.wantsToQuit, false)) {
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

void Application::ShowNotice() {
  if (session.receiver.IsSilent()) {
    BeginFrame();
    painter.ShowIn(window, DrawNotice(painter, session));
  }
}

/// Posted: the present message is still being dealt with.
void Application::Quit() {
  PostMessageW(window, WM_CLOSE, 0, 0);
}

}  // namespace app
