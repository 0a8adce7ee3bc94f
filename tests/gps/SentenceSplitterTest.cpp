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
  EXPECT_EQ(Read("$GPGGA,1*00\r\n$GPRMC,2*11\r\n"), (Sentences{"$GPGGA,1*00", "$GPRMC,2*11"}));
}

TEST_F(SentenceSplitterTest, SentenceGoesWithoutItsLineEnd) {
  EXPECT_EQ(Read("$GPRMC,123519,A*6A\r\n"), (Sentences{"$GPRMC,123519,A*6A"}));
}

TEST_F(SentenceSplitterTest, CarriageReturnAloneEndsASentence) {
  EXPECT_EQ(Read("$A\r$B\r"), (Sentences{"$A", "$B"}));
}

TEST_F(SentenceSplitterTest, LineThatEndsInALineFeedOnlyIsNeverDelivered) {
  EXPECT_EQ(Read("$GPRMC,1\n"), Sentences{});
  EXPECT_EQ(Read("$GPRMC,2\n$GPRMC,3\n"), Sentences{});
}

TEST_F(SentenceSplitterTest, SentenceAfterALineThatEndsInALineFeedOnlyIsDelivered) {
  EXPECT_EQ(Read("$GPRMC,1\n$GPGGA,2\r\n"), (Sentences{"$GPGGA,2"}));
}

TEST_F(SentenceSplitterTest, BytesBeforeTheDollarSignAreDropped) {
  EXPECT_EQ(Read("noise,4*00 $A\r\n"), (Sentences{"$A"}));
}

TEST_F(SentenceSplitterTest, LineWithoutADollarSignIsDropped) {
  EXPECT_EQ(Read("tail of a line\r\n$A\r\n\r\n\n"), (Sentences{"$A"}));
}

TEST_F(SentenceSplitterTest, LaterDollarSignStartsTheSentenceAnew) {
  EXPECT_EQ(Read("$GPRM$GPGGA,1\r\n"), (Sentences{"$GPGGA,1"}));
}

TEST_F(SentenceSplitterTest, OtherBytesAreKeptAsTheyAre) {
  EXPECT_EQ(Read("$A\n\t\xFF,b\r\n"), (Sentences{"$A\n\t\xFF,b"}));
}

TEST_F(SentenceSplitterTest, EmptyReadDeliversNothing) {
  EXPECT_EQ(Read(""), Sentences{});
  EXPECT_EQ(splitter.GetReadSpace(), 2048U);
}

TEST_F(SentenceSplitterTest, WholeBufferIsReadWhileNothingIsCarried) {
  EXPECT_EQ(splitter.GetReadSpace(), 2048U);
  Read("$A\r\n");
  EXPECT_EQ(splitter.GetReadSpace(), 2048U);
}

TEST_F(SentenceSplitterTest, FullBufferIsScannedToItsLastByte) {
  const std::string filling(2045, 'x');
  EXPECT_EQ(Read(filling + "$A\r"), (Sentences{"$A"}));
}

TEST_F(SentenceSplitterTest, ReadThatEndsInASentenceDeliversNothingOfIt) {
  EXPECT_EQ(Read("$A\r\n$GPRMC,1"), (Sentences{"$A"}));
}

// The rest of a sentence is read one place behind where its "$" stood, over what came after the
// "$", and each scan covers as many bytes as its read returned, from the front.

TEST_F(SentenceSplitterTest, RestOfASentenceThatBeganAReadFollowsItsDollarSign) {
  EXPECT_EQ(Read("$GPRMC,A"), Sentences{});
  EXPECT_EQ(splitter.GetReadSpace(), 2047U);
  // In the buffer: "$,B*00" CR; the scan of 7 bytes ends there.
  EXPECT_EQ(Read(",B*00\r\n"), (Sentences{"$,B*00"}));
}

TEST_F(SentenceSplitterTest, SentencesAfterACarriedOneAreWhole) {
  Read("$GPRMC,A");
  Read(",B*00\r\n");
  // The "$" at the front stays, and the one that follows it starts anew.
  EXPECT_EQ(Read("$X\r\n"), (Sentences{"$X"}));
  EXPECT_EQ(Read("$Y\r\n$Z\r\n"), (Sentences{"$Y", "$Z"}));
}

TEST_F(SentenceSplitterTest, UnfinishedSentenceIsMovedToTheFront) {
  EXPECT_EQ(Read("xx$AB"), Sentences{});  // "$" at 2: read on at 3
  EXPECT_EQ(splitter.GetReadSpace(), 2045U);
  // In the buffer: "$ABC" CR LF; only 3 bytes are scanned, and the "$" now stands at 0: read on at
  // 1.
  EXPECT_EQ(Read("C\r\n"), Sentences{});
  EXPECT_EQ(splitter.GetReadSpace(), 2047U);
  // In the buffer: "$D" CR; 3 bytes are scanned.
  EXPECT_EQ(Read("D\r\n"), (Sentences{"$D"}));
}

TEST_F(SentenceSplitterTest, OffsetStaysWhenNoSentenceIsLeftOver) {
  Read("xx$AB");
  // In the buffer: "$AB" CR LF CR LF CR LF; 6 bytes are scanned.
  EXPECT_EQ(Read("\r\n\r\n\r\n"), (Sentences{"$AB"}));
  EXPECT_EQ(splitter.GetReadSpace(), 2045U);
}

TEST_F(SentenceSplitterTest, OffsetStaysAfterAnEmptyRead) {
  Read("xx$AB");
  EXPECT_EQ(Read(""), Sentences{});
  EXPECT_EQ(splitter.GetReadSpace(), 2045U);
}

TEST_F(SentenceSplitterTest, DollarSignInTheLastPlaceStartsAgainAtTheFront) {
  const std::string filling(2047, 'x');
  EXPECT_EQ(Read(filling + "$"), Sentences{});
  EXPECT_EQ(splitter.GetReadSpace(), 2048U);
  EXPECT_EQ(Read("$A\r\n"), (Sentences{"$A"}));
}

TEST_F(SentenceSplitterTest, DollarSignInTheLastButOnePlaceLeavesRoomForOneByte) {
  const std::string filling(2046, 'x');
  Read(filling + "$y");
  EXPECT_EQ(splitter.GetReadSpace(), 1U);
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
      ASSERT_EQ(*sentence, '$');
      ASSERT_LT(std::string_view(sentence).size(), SentenceSplitter::BUFFER_SIZE);
      fix.ParseSentence(sentence);
    });
    ASSERT_GT(splitter.GetReadSpace(), 0U);
    ASSERT_LE(splitter.GetReadSpace(), 2048U);
  }
}

}  // namespace
}  // namespace ferolin
