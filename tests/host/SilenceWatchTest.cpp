#include <gtest/gtest.h>

#include "sources/SilenceWatch.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr SilenceWatch::Time WATCH_START(1000s);

TEST(SilenceWatchTest, TellsWholeSecondsFromTheThirdOn) {
  const SilenceWatch watch(WATCH_START);
  EXPECT_EQ(0, watch.CountSilentSeconds(WATCH_START));
  EXPECT_EQ(0, watch.CountSilentSeconds(WATCH_START + 2999ms));
  EXPECT_EQ(3, watch.CountSilentSeconds(WATCH_START + 3s));
  EXPECT_EQ(12, watch.CountSilentSeconds(WATCH_START + 12900ms));
}

TEST(SilenceWatchTest, ASentenceEndsTheSilence) {
  SilenceWatch watch(WATCH_START);
  watch.OnSentence(WATCH_START + 10s);
  EXPECT_EQ(0, watch.CountSilentSeconds(WATCH_START + 12s));
  EXPECT_EQ(4, watch.CountSilentSeconds(WATCH_START + 14s));
}

TEST(SilenceWatchTest, BytesWithoutASentenceAreNoise) {
  SilenceWatch watch(WATCH_START);
  EXPECT_FALSE(watch.HasNoise(WATCH_START + 5s));
  watch.OnNoise(WATCH_START + 1s);
  EXPECT_FALSE(watch.HasNoise(WATCH_START + 2s)) << "a sentence may still be coming";
  EXPECT_TRUE(watch.HasNoise(WATCH_START + 3s));
  EXPECT_FALSE(watch.HasNoise(WATCH_START + 4s)) << "the bytes have ended, too";
  watch.OnSentence(WATCH_START + 4s);
  EXPECT_FALSE(watch.HasNoise(WATCH_START + 7s));
}

}  // namespace
}  // namespace host
