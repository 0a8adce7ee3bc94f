#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "gps/FixRecord.h"
#include "gps/SentenceSplitter.h"
#include "support/EditableFix.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

using Sentences = std::vector<std::string>;

class SentenceSplitterTest : public testing::Test {
 protected:
  /// What one read that returns these bytes delivers.
  Sentences Read(std::string_view bytes) {
    EXPECT_LE(bytes.size(), splitter.GetReadSpace());
    std::ranges::copy(bytes, splitter.GetReadPosition());
    Sentences sentences;
    splitter.Scan(bytes.size(), [&](const char* sentence) { sentences.emplace_back(sentence); });
    return sentences;
  }

  SentenceSplitter splitter;
};

TEST_F(SentenceSplitterTest, TwoCompleteSentencesOfOneReadAreDeliveredInOrder) {
  EXPECT_EQ((Sentences{"$GPGGA,1*00", "$GPRMC,2*11"}), Read("$GPGGA,1*00\r\n$GPRMC,2*11\r\n"));
}

TEST_F(SentenceSplitterTest, SentenceGoesWithoutItsLineEnd) {
  EXPECT_EQ((Sentences{"$GPRMC,123519,A*6A"}), Read("$GPRMC,123519,A*6A\r\n"));
}

TEST_F(SentenceSplitterTest, CarriageReturnAloneEndsASentence) {
  EXPECT_EQ((Sentences{"$A", "$B"}), Read("$A\r$B\r"));
}

TEST_F(SentenceSplitterTest, LineThatEndsInALineFeedOnlyIsNeverDelivered) {
  EXPECT_EQ(Sentences{}, Read("$GPRMC,1\n"));
  EXPECT_EQ(Sentences{}, Read("$GPRMC,2\n$GPRMC,3\n"));
}

TEST_F(SentenceSplitterTest, SentenceAfterALineThatEndsInALineFeedOnlyIsDelivered) {
  EXPECT_EQ((Sentences{"$GPGGA,2"}), Read("$GPRMC,1\n$GPGGA,2\r\n"));
}

TEST_F(SentenceSplitterTest, BytesBeforeTheDollarSignAreDropped) {
  EXPECT_EQ((Sentences{"$A"}), Read("noise,4*00 $A\r\n"));
}

TEST_F(SentenceSplitterTest, LineWithoutADollarSignIsDropped) {
  EXPECT_EQ((Sentences{"$A"}), Read("tail of a line\r\n$A\r\n\r\n\n"));
}

TEST_F(SentenceSplitterTest, LaterDollarSignStartsTheSentenceAnew) {
  EXPECT_EQ((Sentences{"$GPGGA,1"}), Read("$GPRM$GPGGA,1\r\n"));
}

TEST_F(SentenceSplitterTest, OtherBytesAreKeptAsTheyAre) {
  EXPECT_EQ((Sentences{"$A\n\t\xFF,b"}), Read("$A\n\t\xFF,b\r\n"));
}

TEST_F(SentenceSplitterTest, EmptyReadDeliversNothing) {
  EXPECT_EQ(Sentences{}, Read(""));
  EXPECT_EQ(2048U, splitter.GetReadSpace());
}

TEST_F(SentenceSplitterTest, WholeBufferIsReadWhileNothingIsCarried) {
  EXPECT_EQ(2048U, splitter.GetReadSpace());
  Read("$A\r\n");
  EXPECT_EQ(2048U, splitter.GetReadSpace());
}

TEST_F(SentenceSplitterTest, FullBufferIsScannedToItsLastByte) {
  const std::string filling(2045, 'x');
  EXPECT_EQ((Sentences{"$A"}), Read(filling + "$A\r"));
}

TEST_F(SentenceSplitterTest, ReadThatEndsInASentenceDeliversNothingOfIt) {
  EXPECT_EQ((Sentences{"$A"}), Read("$A\r\n$GPRMC,1"));
}

// The rest of a sentence is read one place behind where its "$" stood, over what came after the
// "$", and each scan covers as many bytes as its read returned, from the front.

TEST_F(SentenceSplitterTest, RestOfASentenceThatBeganAReadFollowsItsDollarSign) {
  EXPECT_EQ(Sentences{}, Read("$GPRMC,A"));
  EXPECT_EQ(2047U, splitter.GetReadSpace());
  // In the buffer: "$,B*00" CR; the scan of 7 bytes ends there.
  EXPECT_EQ((Sentences{"$,B*00"}), Read(",B*00\r\n"));
}

TEST_F(SentenceSplitterTest, SentencesAfterACarriedOneAreWhole) {
  Read("$GPRMC,A");
  Read(",B*00\r\n");
  // The "$" at the front stays, and the one that follows it starts anew.
  EXPECT_EQ((Sentences{"$X"}), Read("$X\r\n"));
  EXPECT_EQ((Sentences{"$Y", "$Z"}), Read("$Y\r\n$Z\r\n"));
}

TEST_F(SentenceSplitterTest, UnfinishedSentenceIsMovedToTheFront) {
  EXPECT_EQ(Sentences{}, Read("xx$AB"));  // "$" at 2: read on at 3
  EXPECT_EQ(2045U, splitter.GetReadSpace());
  // In the buffer: "$ABC" CR LF; only 3 bytes are scanned, and the "$" now stands at 0: read on at
  // 1.
  EXPECT_EQ(Sentences{}, Read("C\r\n"));
  EXPECT_EQ(2047U, splitter.GetReadSpace());
  // In the buffer: "$D" CR; 3 bytes are scanned.
  EXPECT_EQ((Sentences{"$D"}), Read("D\r\n"));
}

TEST_F(SentenceSplitterTest, OffsetStaysWhenNoSentenceIsLeftOver) {
  Read("xx$AB");
  // In the buffer: "$AB" CR LF CR LF CR LF; 6 bytes are scanned.
  EXPECT_EQ((Sentences{"$AB"}), Read("\r\n\r\n\r\n"));
  EXPECT_EQ(2045U, splitter.GetReadSpace());
}

TEST_F(SentenceSplitterTest, OffsetStaysAfterAnEmptyRead) {
  Read("xx$AB");
  EXPECT_EQ(Sentences{}, Read(""));
  EXPECT_EQ(2045U, splitter.GetReadSpace());
}

TEST_F(SentenceSplitterTest, DollarSignInTheLastPlaceStartsAgainAtTheFront) {
  const std::string filling(2047, 'x');
  EXPECT_EQ(Sentences{}, Read(filling + "$"));
  EXPECT_EQ(2048U, splitter.GetReadSpace());
  EXPECT_EQ((Sentences{"$A"}), Read("$A\r\n"));
}

TEST_F(SentenceSplitterTest, DollarSignInTheLastButOnePlaceLeavesRoomForOneByte) {
  const std::string filling(2046, 'x');
  Read(filling + "$y");
  EXPECT_EQ(1U, splitter.GetReadSpace());
}

TEST_F(SentenceSplitterTest, RandomBytesDoNotHarm) {
  constexpr std::string_view LETTERS = "$$,,**\r\n\rGPRMCASV0123456789.-";
  std::mt19937 random(33);
  EditableFix fix;
  for (int round = 0; round < 3000; ++round) {
    std::string bytes(random() % (splitter.GetReadSpace() + 1), '\0');
    for (char& byte : bytes) {
      byte = round % 3 == 0 ? static_cast<char>(random()) : LETTERS[random() % LETTERS.size()];
    }
    std::ranges::copy(bytes, splitter.GetReadPosition());
    splitter.Scan(bytes.size(), [&](const char* sentence) {
      ASSERT_EQ('$', *sentence);
      ASSERT_LT(std::string_view(sentence).size(), SentenceSplitter::BUFFER_SIZE);
      fix.ParseSentence(sentence);
    });
    ASSERT_GT(splitter.GetReadSpace(), 0U);
    ASSERT_LE(splitter.GetReadSpace(), 2048U);
  }
}

}  // namespace
}  // namespace ferolin
