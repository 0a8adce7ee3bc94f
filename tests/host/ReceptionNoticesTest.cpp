#include <gtest/gtest.h>

#include "sources/ReceptionNotices.h"

namespace host {
namespace {

using News = std::vector<std::string>;

class ReceptionNoticesTest : public testing::Test {
 protected:
  News Tell(const std::string& trouble, int silentSeconds, bool hasNoise = false) {
    return notices.TakeNews({trouble, silentSeconds, hasNoise});
  }

  ReceptionNotices notices{"/dev/ttyUSB0"};
};

TEST_F(ReceptionNoticesTest, SaysNothingWhileSentencesCome) {
  EXPECT_EQ(News(), Tell("", 0));
  EXPECT_EQ(News(), Tell("", 0));
}

TEST_F(ReceptionNoticesTest, TellsASilenceOnceAndItsEnd) {
  EXPECT_EQ(News{"no data for 3 s"}, Tell("", 3));
  EXPECT_EQ(News(), Tell("", 4));
  EXPECT_EQ(News(), Tell("", 12));
  EXPECT_EQ(News{"data again after 12 s"}, Tell("", 0));
  EXPECT_EQ(News{"no data for 3 s"}, Tell("", 3));
}

TEST_F(ReceptionNoticesTest, AsksForTheBaudRateWhenThereAreOnlyBytes) {
  const std::string hint = "bytes but no sentences: is the baud rate right? (--baud)";
  EXPECT_EQ(News{hint}, Tell("", 3, true));
  EXPECT_EQ(News(), Tell("", 4, true));
  EXPECT_EQ(News{"data again after 4 s"}, Tell("", 0));
  EXPECT_EQ(News{"no data for 3 s"}, Tell("", 3));
  EXPECT_EQ(News{hint}, Tell("", 8, true));
}

TEST_F(ReceptionNoticesTest, TellsALostConnectionInsteadOfItsSilence) {
  EXPECT_EQ(News{"cannot open it; trying again until it works"}, Tell("cannot open it", 0));
  EXPECT_EQ(News(), Tell("cannot open it", 3));
  EXPECT_EQ(News(), Tell("another reason", 4));
  EXPECT_EQ((News{"/dev/ttyUSB0 is connected", "data again after 4 s"}), Tell("", 0));
}

TEST_F(ReceptionNoticesTest, TellsASilenceBehindAConnection) {
  Tell("cannot open it", 4);
  EXPECT_EQ(News{"/dev/ttyUSB0 is connected"}, Tell("", 5));
  EXPECT_EQ(News{"data again after 5 s"}, Tell("", 0));
}

TEST(ReceptionTest, IsDescribedAsItIsNow) {
  EXPECT_EQ("", Describe({}));
  EXPECT_EQ("no data for 12 s", Describe({"", 12, false}));
  EXPECT_EQ("bytes but no sentences: is the baud rate right? (--baud)", Describe({"", 12, true}));
  EXPECT_EQ("cannot open it", Describe({"cannot open it", 12, true}));
}

TEST_F(ReceptionNoticesTest, TellEachStepOfASearchOnceAndWhatItFound) {
  const auto tell = [this](const std::string& trouble, const std::string& found) {
    return notices.TakeNews({trouble, 0, false, true, found});
  };
  EXPECT_EQ(News{"looking: a"}, tell("looking: a", ""));
  EXPECT_EQ(News{"looking: b"}, tell("looking: b", ""));
  EXPECT_EQ(News(), tell("looking: a", ""));
  EXPECT_EQ(News{"found a receiver: b"}, tell("", "b"));
  EXPECT_EQ(News(), tell("", "b"));
  EXPECT_EQ(News{"looking: a"}, tell("looking: a", "b"));
  EXPECT_EQ(News{"found a receiver: b"}, tell("", "b"));
}

}  // namespace
}  // namespace host
