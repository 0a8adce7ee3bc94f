#include <gtest/gtest.h>

#include "sources/SilenceWatch.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr SilenceWatch::Time START(1000s);

TEST(SilenceWatchTest, TellsWholeSecondsFromTheThirdOn) {
  const SilenceWatch watch(START);
  EXPECT_EQ(0, watch.CountSilentSeconds(START));
  EXPECT_EQ(0, watch.CountSilentSeconds(START + 2999ms));
  EXPECT_EQ(3, watch.CountSilentSeconds(START + 3s));
  EXPECT_EQ(12, watch.CountSilentSeconds(START + 12900ms));
}

TEST(SilenceWatchTest, ASentenceEndsTheSilence) {
  SilenceWatch watch(START);
  watch.OnSentence(START + 10s);
  EXPECT_EQ(0, watch.CountSilentSeconds(START + 12s));
  EXPECT_EQ(4, watch.CountSilentSeconds(START + 14s));
}

TEST(SilenceWatchTest, BytesWithoutASentenceAreNoise) {
  SilenceWatch watch(START);
  EXPECT_FALSE(watch.HasNoise(START + 5s));
  watch.OnNoise(START + 1s);
  EXPECT_FALSE(watch.HasNoise(START + 2s)) << "a sentence may still be coming";
  EXPECT_TRUE(watch.HasNoise(START + 3s));
  EXPECT_FALSE(watch.HasNoise(START + 4s)) << "the bytes have ended, too";
  watch.OnSentence(START + 4s);
  EXPECT_FALSE(watch.HasNoise(START + 7s));
}

}  // namespace
}  // namespace host
