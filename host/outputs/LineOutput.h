// A line of text now and then, and all read-outs at the end.
#pragma once

#include <chrono>

#include "outputs/Output.h"
#include "outputs/ShownReadouts.h"
#include "outputs/StandardOutput.h"

namespace host {

class LineOutput : public Output {
 public:
  /// The output outlives it.
  LineOutput(StandardOutput& output, const ShownReadouts& shown) : output(output), shown(shown) {}

  /// Prints a line at the first update, then at every tenth of a recording or every ten seconds.
  void Show(const Update& update) override;
  void Finish(const Update& last, const Readouts& registry) override;

 private:
  bool IsDue(const Update& update);

  StandardOutput& output;
  const ShownReadouts shown;
  int tenthsShown = 0;
  std::chrono::steady_clock::time_point lastShown;
};

}  // namespace host
