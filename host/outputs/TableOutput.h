// A live table on a terminal.
#pragma once

#include <chrono>
#include <string>

#include "outputs/Output.h"
#include "outputs/Screen.h"
#include "outputs/ShownReadouts.h"
#include "outputs/TerminalTable.h"

namespace host {

class TableOutput : public Output {
 public:
  /// Shows the table at once, with `source` in its title. The output outlives it.
  TableOutput(StandardOutput& output, const std::string& source, const ShownReadouts& toShow,
              const Readouts& readouts);

  void Show(const Update& update) override;
  void Redraw() override { Draw(); }
  void Finish(const Update& last, const Readouts& registry) override;

 private:
  void Draw();

  StandardOutput& output;
  Screen screen;
  TerminalTable table;
  const ShownReadouts toShow;
  /// With the read-outs as the engine shows them.
  Update shown;
  std::chrono::steady_clock::time_point lastDrawn;
};

}  // namespace host
