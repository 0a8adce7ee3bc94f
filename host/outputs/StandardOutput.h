// Standard output.
#pragma once

#include <string_view>

namespace host {

/// Writes every text as a whole, and nothing more after the first failure.
class StandardOutput {
 public:
  /// False when the text could not be written, or an earlier one could not.
  bool Write(std::string_view text);

  bool IsBroken() const { return broken; }
  /// Reason of the failure, an errno value; 0 without a failure, EPIPE when the reader went away.
  int GetError() const { return error; }

 private:
  bool broken = false;
  int error = 0;
};

}  // namespace host
