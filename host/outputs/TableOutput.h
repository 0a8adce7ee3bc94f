// A live table on a terminal.
#pragma once

#include <chrono>
#include <string>

#include "outputs/Output.h"
#include "outputs/Screen.h"
#include "outputs/TerminalTable.h"

namespace host {

class TableOutput : public Output {
 public:
  /// `source` stands in the title. The table is there at once, still empty.
  TableOutput(StandardOutput& outputToUse, const std::string& source, const Readouts& readouts);

  void Show(const Update& update) override;
  void Redraw() override { Draw(); }
  void Finish(const Update& last, const Readouts& registry) override;
  bool IsFullScreen() const override { return isOnScreen; }

 private:
  void Draw();

  StandardOutput& output;
  Screen screen;
  TerminalTable table;
  Update shown;
  std::chrono::steady_clock::time_point lastDrawn;
  bool isOnScreen = true;
};

}  // namespace host
