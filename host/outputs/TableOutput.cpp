#include "outputs/TableOutput.h"

namespace host {

namespace {

/// Faster than this nobody reads it.
constexpr std::chrono::milliseconds SHORTEST_VIEW(50);

}  // namespace

TableOutput::TableOutput(StandardOutput& outputToUse, const std::string& source,
                         const Readouts& readouts)
    : output(outputToUse), screen(outputToUse), table(source) {
  shown.readouts = readouts;
  Draw();
}

void TableOutput::Show(const Update& update) {
  shown = update;
  if (std::chrono::steady_clock::now() - lastDrawn >= SHORTEST_VIEW) {
    Draw();
  }
}

void TableOutput::Draw() {
  const Screen::Size size = Screen::GetSize();
  screen.Show(table.LayOut(shown, size.columns, size.rows));
  lastDrawn = std::chrono::steady_clock::now();
}

void TableOutput::Finish(const Update& last, const Readouts&) {
  Screen::Restore();
  isOnScreen = false;
  std::string text;
  for (const std::string& line :
       TerminalTable::LayOutReadouts(last.readouts, Screen::GetSize().columns)) {
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  output.Write(text);
}

}  // namespace host
