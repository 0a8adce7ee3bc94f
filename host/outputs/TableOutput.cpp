#include "outputs/TableOutput.h"

namespace host {

namespace {

/// Shortest time between two redraws, because nobody reads faster.
constexpr std::chrono::milliseconds SHORTEST_VIEW(50);

}  // namespace

TableOutput::TableOutput(StandardOutput& output, const std::string& source,
                         const ShownReadouts& toShow, const Readouts& readouts)
    : output(output), screen(output), table(source), toShow(toShow) {
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
  Update update = shown;
  update.readouts = toShow.Make(shown);
  screen.Show(table.LayOut(update, size.columns, size.rows));
  lastDrawn = std::chrono::steady_clock::now();
}

void TableOutput::Finish(const Update& last, const Readouts&) {
  Screen::Restore();
  std::string text;
  for (const std::string& line :
       TerminalTable::LayOutReadouts(toShow.Make(last), Screen::GetSize().columns)) {
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  output.Write(text);
}

}  // namespace host
