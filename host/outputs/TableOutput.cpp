#include "outputs/TableOutput.h"

namespace host {

namespace {

/// Shortest time between two redraws, because nobody reads faster.
constexpr std::chrono::milliseconds SHORTEST_VIEW(50);

}  // namespace

TableOutput::TableOutput(StandardOutput& output, const std::string& source,
                         const Readouts& readouts)
    : output(output), screen(output), table(source) {
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
  std::string text;
  for (const std::string& line :
       TerminalTable::LayOutReadouts(last.readouts, Screen::GetSize().columns)) {
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  output.Write(text);
}

}  // namespace host
