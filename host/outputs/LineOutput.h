// A line of text now and then, and all read-outs at the end.
#pragma once

#include <chrono>

#include "outputs/Output.h"
#include "outputs/StandardOutput.h"

namespace host {

class LineOutput : public Output {
 public:
  explicit LineOutput(StandardOutput& output) : output(output) {}

  /// Prints a line at the first update, then at every tenth of a recording or every ten seconds.
  void Show(const Update& update) override;
  void Finish(const Update& last, const Readouts& registry) override;

 private:
  bool IsDue(const Update& update);

  StandardOutput& output;
  int tenthsShown = 0;
  std::chrono::steady_clock::time_point lastShown;
};

}  // namespace host
