#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parlex/FailureLog.h"

namespace parlex {
namespace {

std::string Told(const std::vector<Result>& results) {
  FailureLog log;
  testing::internal::CaptureStderr();
  for (const Result& result : results) {
    log.Write(result);
  }
  return testing::internal::GetCapturedStderr();
}

TEST(FailureLogTest, SuccessIsNotWorthAWord) {
  EXPECT_EQ("", Told({{Outcome::SENT, ""}}));
}

TEST(FailureLogTest, EachKindIsToldOnce) {
  EXPECT_EQ("SMS not sent: no modem found\nSMS not sent: no system bus\n",
            Told({{Outcome::NO_MODEM, ""},
                  {Outcome::NO_BUS, ""},
                  {Outcome::NO_MODEM, ""},
                  {Outcome::SENT, ""},
                  {Outcome::NO_BUS, ""}}));
}

TEST(FailureLogTest, TheModemsWordsArePassedOn) {
  EXPECT_EQ("SMS not sent: the modem refused it (SIM PIN required)\n",
            Told({{Outcome::REFUSED, "SIM PIN required"}, {Outcome::REFUSED, "no network"}}));
}

TEST(FailureLogTest, EveryFailureHasAReason) {
  EXPECT_EQ(
      "SMS not sent: ModemManager is not there\n"
      "SMS not sent: no answer from the modem\n"
      "SMS not sent: too many messages waiting\n"
      "SMS not sent: no memory or threads left\n"
      "SMS not sent: not done when the program ended\n",
      Told({{Outcome::NO_SERVICE, ""},
            {Outcome::NO_ANSWER, ""},
            {Outcome::QUEUE_FULL, ""},
            {Outcome::NO_RESOURCES, ""},
            {Outcome::UNLOADED, ""}}));
}

}  // namespace
}  // namespace parlex
