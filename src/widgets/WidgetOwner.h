#pragma once

#include <windows.h>

#include "base/WideString.h"

namespace ferolin {

class BarCountdown;
class FixRecord;
class Lock;
class Sensor;

/// What a view may ask of the engine that owns it.
///
/// The data lock guards the fix with its track, the sensors and the countdown. Everything else may
/// be called from any thread.
class WidgetOwner {
 public:
  virtual const FixRecord& GetFix() const = 0;
  /// Null for an index out of range.
  virtual const Sensor* GetSensor(int index) const = 0;
  virtual int GetSensorCount() const = 0;
  /// Shared by the button bars of all views.
  virtual BarCountdown& GetBarCountdown() = 0;
  virtual Lock& GetDataLock() const = 0;

  /// Folder of the library, without a backslash at its end.
  virtual WideString GetModuleDir() const = 0;
  /// Whether the library that sends messages was found.
  virtual bool CanSendSms() const = 0;

  /// Null while there is no window to draw into.
  virtual HWND GetRenderWindow() const = 0;
  /// Starts a redraw of the current view. Call it without the data lock: it waits for a redraw
  /// under way.
  virtual void RequestRedraw() = 0;

  /// Number of the message that tells the host of touches.
  virtual UINT GetMessageId() const = 0;
  /// Posts to the host's window. Does nothing when the host has stopped or its window is gone.
  virtual void PostToHost(UINT message, WPARAM wParam, LPARAM lParam) const = 0;

 protected:
  ~WidgetOwner() = default;
};

}  // namespace ferolin
