#include <gtest/gtest.h>

#include <algorithm>

#include "base/DisplayText.h"
#include "outputs/TerminalTable.h"

namespace host {
namespace {

constexpr int SENSORS = 36;

Update MakeUpdate(const std::string& name, const std::string& value) {
  Update update;
  update.number = 7;
  for (int i = 0; i < SENSORS; ++i) {
    update.readouts.push_back({name + std::to_string(i), value + std::to_string(i)});
  }
  return update;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

TEST(TerminalTable, ShowsAllReadOutsOnAnOrdinaryTerminal) {
  const std::string text = Joined(TerminalTable("x").LayOut(MakeUpdate("Name", "v"), 80, 24));
  for (int i = 0; i < SENSORS; ++i) {
    EXPECT_NE(text.find("v" + std::to_string(i)), std::string::npos) << i;
  }
}

TEST(TerminalTable, NeverExceedsTheTerminal) {
  const TerminalTable table("a source with quite a long name, longer than some terminals are wide");
  Update update = MakeUpdate("Максимальная скорость за поездку ", "123°45'59'' ЗД");
  update.progress = 0.5;
  update.notice = "bytes but no sentences: is the baud rate right? (--baud)";
  update.timeLeft = "1:30 left";
  for (std::size_t columns = 8; columns <= 200; ++columns) {
    for (const std::size_t rows : {1, 2, 10, 24, 60}) {
      const std::vector<std::string> lines = table.LayOut(update, columns, rows);
      ASSERT_LE(lines.size(), rows);
      for (const std::string& line : lines) {
        ASSERT_LE(CountColumns(line), columns) << line;
      }
    }
  }
}

TEST(TerminalTable, ShowsWhatIsWrongWithTheReceptionOnEveryTerminal) {
  Update update = MakeUpdate("Name", "v");
  update.notice = "no data for 12 s";
  for (const std::size_t rows : {1, 10, 24}) {
    const std::string title = TerminalTable("gpsd").LayOut(update, 80, rows).front();
    EXPECT_NE(title.find("gpsd: no data for 12 s"), std::string::npos) << title;
    EXPECT_NE(title.find("update 7"), std::string::npos) << title;
  }
}

TEST(TerminalTable, LinesUpCyrillicAsLatin) {
  const std::vector<std::string> latin =
      TerminalTable::LayOutReadouts(MakeUpdate("abc", "km").readouts, 80);
  const std::vector<std::string> cyrillic =
      TerminalTable::LayOutReadouts(MakeUpdate("абв", "км").readouts, 80);
  ASSERT_EQ(cyrillic.size(), latin.size());
  for (std::size_t i = 0; i < latin.size(); ++i) {
    EXPECT_EQ(CountColumns(cyrillic[i]), CountColumns(latin[i]));
  }
}

TEST(TerminalTable, HasOneColumnOnANarrowTerminal) {
  EXPECT_EQ(36u, TerminalTable::LayOutReadouts(MakeUpdate("n", "v").readouts, 40).size());
  EXPECT_LT(TerminalTable::LayOutReadouts(MakeUpdate("n", "v").readouts, 80).size(), 21u);
}

TEST(TerminalTable, PutsNameAndValueAtTheEndsOfACell) {
  // Cells of (80 - 4) / 2 = 38 columns; the first line holds sensors 0 and 11.
  const std::string line = TerminalTable::LayOutReadouts(MakeUpdate("Name", "v").readouts, 80)[0];
  EXPECT_EQ("Name0" + std::string(31, ' ') + "v0" + std::string(4, ' ') + "Name11" +
                std::string(29, ' ') + "v11",
            line);
}

TEST(TerminalTable, NamesSourceAndUpdate) {
  const std::string title = TerminalTable("drive.nmea").LayOut(MakeUpdate("n", "v"), 80, 24)[0];
  EXPECT_NE(title.find("drive.nmea"), std::string::npos);
  EXPECT_NE(title.find("update 7"), std::string::npos);
}

TEST(TerminalTable, ShowsProgressOnlyWhenThereIsAnEnd) {
  Update update = MakeUpdate("n", "v");
  EXPECT_EQ(std::string::npos, Joined(TerminalTable("x").LayOut(update, 80, 24)).find('['));
  update.progress = 0.25;
  EXPECT_NE(Joined(TerminalTable("x").LayOut(update, 80, 24)).find("25 %"), std::string::npos);
}

TEST(TerminalTable, ShowsTheTimeLeftBesideTheBar) {
  Update update = MakeUpdate("n", "v");
  update.progress = 0.25;
  update.timeLeft = "1:30 left";
  const std::string wide = Joined(TerminalTable("x").LayOut(update, 80, 24));
  EXPECT_NE(wide.find("25 %  1:30 left"), std::string::npos);
  const std::string narrow = Joined(TerminalTable("x").LayOut(update, 30, 60));
  EXPECT_NE(narrow.find("25 %"), std::string::npos);
  EXPECT_EQ(narrow.find("left"), std::string::npos);
}

TEST(TerminalTable, DrawsABarOfTheShare) {
  EXPECT_EQ("[#####.....]  50 %", TerminalTable::Bar(0.5, 18));
  EXPECT_EQ("[....]   0 %", TerminalTable::Bar(0, 12));
  EXPECT_EQ("[####] 100 %", TerminalTable::Bar(1, 12));
  EXPECT_EQ("[####] 100 %", TerminalTable::Bar(1.5, 12));
}

}  // namespace
}  // namespace host
