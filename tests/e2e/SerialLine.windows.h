#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace e2e {

/// The far end of a serial line. A program under Wine can open a pseudo-terminal, but not make one:
/// a helper outside does, which listens on the TCP port that FEROLIN_TEST_LINES names.
class SerialLine {
 public:
  SerialLine();
  ~SerialLine();
  SerialLine(const SerialLine&) = delete;
  SerialLine& operator=(const SerialLine&) = delete;

  /// File name of the near end, for CreateFileW.
  const std::wstring& GetNearEnd() const { return nearEnd; }
  void Send(std::string_view bytes);
  int GetBaudRate() const;

 private:
  void Write(std::string_view bytes) const;
  std::string ReadLine() const;

  UINT_PTR connection;
  std::wstring nearEnd;
};

}  // namespace e2e
