#pragma once

#include <windows.h>

#include <cstdint>

#include "base/Lock.h"
#include "base/SharedWord.h"

namespace ferolin {

class Widget;
class WidgetTable;

/// Draws the current view into the render window, each frame on a short-lived thread of the lowest
/// priority. There is never more than one such thread.
class Redraw {
 public:
  /// Both are borrowed; `dataLock` is held while a frame is drawn.
  Redraw(const WidgetTable& widgets, Lock& dataLock) : widgets(widgets), dataLock(dataLock) {}
  Redraw(const Redraw&) = delete;
  Redraw& operator=(const Redraw&) = delete;

  HWND GetRenderWindow() const { return renderWindow; }
  /// Returns when no frame is being drawn into the window set before. Any thread.
  void SetRenderWindow(HWND window);

  /// Index of the view to draw; -1 for none.
  int GetCurRenderWidget() const { return curRenderWidget; }
  void SetCurRenderWidget(int index) { curRenderWidget = index; }
  /// Null when the index names no view.
  Widget* GetCurrentWidget() const;

  /// Starts a frame, after waiting for the one before to end. Nothing happens when the render
  /// window is not to be seen or no view is current. Any thread, without the data lock.
  void Request();

  /// Returns when no frame is being drawn. Any thread, without the data lock.
  void Wait();

 private:
  static DWORD WINAPI ThreadProc(LPVOID argument);

  bool CanDraw() const;
  void DrawFrame();

  const WidgetTable& widgets;
  Lock& dataLock;
  HANDLE redrawThread = INVALID_HANDLE_VALUE;  ///< thread of the last frame; guarded by redrawLock
  SharedWord<HWND> renderWindow = nullptr;     ///< written under the data lock
  SharedWord<std::int32_t> curRenderWidget = -1;
  /// View that was current at the last frame, whether or not it was drawn. Redraw threads only.
  SharedWord<std::int32_t> lastDrawnWidget = -1;
  /// Held from before the wait for one frame until the next has its thread. The thread itself never
  /// takes it.
  Lock redrawLock;
};

}  // namespace ferolin
