#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/WideString.h"
#include "sms/SmsReport.h"

namespace ferolin {

class FixRecord;
class IniStore;

/// Reports the current position as a text message to one or more numbers: on request, and on its
/// own when two successive fixes lie a chosen time apart. The sibling library "Parlex.DLL" does the
/// sending; without it reports go nowhere. `Tick` runs on the reader thread, everything else on the
/// host's, all under the engine's data lock; the reports are sent without it.
class SmsReporter {
 public:
  /// Loads the sibling library. `fixRecord` must outlive the reporter.
  explicit SmsReporter(const FixRecord& fixRecord);
  ~SmsReporter();
  SmsReporter(const SmsReporter&) = delete;
  SmsReporter& operator=(const SmsReporter&) = delete;

  /// Whether the sibling library is there.
  bool CanSend() const { return sendProc != nullptr; }

  bool IsEnabled() const { return enabled; }
  bool IsSendIfChanged() const { return sendIfChanged; }
  int GetInterval() const { return interval; }
  const std::string& GetText() const { return text; }
  /// The numbers, joined with ",".
  WideString GetAddress() const;

  /// `newAddress` holds numbers separated by ","; blanks around them and empty ones are dropped.
  /// `newInterval` is in minutes; below 1 nothing is sent automatically.
  void SetParams(WideStringView newAddress, std::string newText, int newInterval, bool enable,
                 bool onlyIfChanged);

  void LoadSettings(const IniStore& store);
  void SaveSettings(IniStore& store) const;

  /// A report of the position now, to be sent while the reporter lives.
  SmsReport MakeReport() const;

  /// The step at each fix. Returns the report to send, one without recipients when none is due.
  /// The interval is measured between this fix and the previous one, not since the last message: a
  /// message goes out when the receiver was silent that long.
  SmsReport Tick();

  /// The template with its placeholders replaced by values of the fix.
  std::string BuildMessage() const;

 private:
  void SetAddress(WideStringView address);
  bool IsDue(std::int64_t now) const;

  HMODULE library;
  SmsReport::SendProc sendProc = nullptr;
  std::vector<WideString> recipients;
  const FixRecord& fix;
  std::string text;
  bool enabled = false;
  bool sendIfChanged = false;
  std::int32_t interval = 1;  ///< minutes
  std::int64_t lastTime = 0;  ///< file time of the previous fix, 0 for none
  float lastLongitude = 0;
  float lastLatitude = 0;
};

}  // namespace ferolin
