#include <gtest/gtest.h>

#include "window/WindowTitle.h"

namespace host {
namespace {

TEST(WindowTitleTest, NamesTheViewAndTheSource) {
  Update update;
  update.number = 1;
  EXPECT_EQ("Speed - Ferolin, /dev/ttyUSB0", WindowTitle(update, "Speed", "/dev/ttyUSB0"));
}

TEST(WindowTitleTest, TellsThatPositionsAreAwaited) {
  EXPECT_EQ("Waiting for positions - Ferolin, gpsd", WindowTitle(Update(), "Speed", "gpsd"));
}

TEST(WindowTitleTest, TellsWhatIsWrongFirst) {
  Update update;
  update.notice = "no data for 3 s";
  EXPECT_EQ("no data for 3 s - Ferolin, gpsd", WindowTitle(update, "Speed", "gpsd"));
  update.number = 1;
  EXPECT_EQ("no data for 3 s - Ferolin, gpsd", WindowTitle(update, "Speed", "gpsd"));
}

}  // namespace
}  // namespace host
