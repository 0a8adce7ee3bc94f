#pragma once

#include <windows.h>

#include "base/WideString.h"

namespace ferolin {

class FixRecord;
class Lock;
class Sensor;

/// What a view may ask of the engine that owns it.
///
/// The fix with its track, and the sensors, are guarded by the data lock. Everything else may be
/// called from any thread.
class WidgetOwner {
 public:
  virtual const FixRecord& GetFix() const = 0;
  /// Null for an index out of range.
  virtual const Sensor* GetSensor(int index) const = 0;
  virtual int GetSensorCount() const = 0;
  virtual Lock& GetDataLock() const = 0;

  /// Folder of the library, without a backslash at its end.
  virtual WideString GetModuleDir() const = 0;
  /// Whether the library that sends messages is there.
  virtual bool CanSendSms() const = 0;

  /// Null while nothing is to be drawn.
  virtual HWND GetRenderWindow() const = 0;
  /// Has the current view drawn soon. Call it without the data lock: it waits for a redraw that is
  /// under way.
  virtual void RequestRedraw() = 0;

  /// Number of the message that the host is told of touches with.
  virtual UINT GetMessageId() const = 0;
  /// Posts to the host, unless it has stopped or its window is gone.
  virtual void PostToHost(UINT message, WPARAM wParam, LPARAM lParam) const = 0;

 protected:
  ~WidgetOwner() = default;
};

}  // namespace ferolin
