// Standard output.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// Writes every text as a whole, and nothing more after the first failure.
class StandardOutput {
 public:
  /// False when the text could not be written, or an earlier one could not. A text that is gathered
  /// fails later.
  bool Write(std::string_view text);

  /// From now on texts are gathered: they are written in large blocks, and by Flush.
  void Gather() { gathers = true; }
  /// Writes what was gathered.
  void Flush();

  bool IsBroken() const { return broken; }
  /// Reason of the failure, an errno value; 0 without a failure, EPIPE when the reader went away.
  int GetError() const { return error; }

 private:
  void WriteAtOnce(std::string_view text);

  bool gathers = false;
  std::string gathered;
  bool broken = false;
  int error = 0;
};

}  // namespace host
