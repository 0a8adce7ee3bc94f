#include <gtest/gtest.h>

#include <future>
#include <stdexcept>

#include "web/BackgroundWork.h"

namespace host {
namespace {

using Jobs = std::vector<std::shared_ptr<BackgroundWork::Job>>;

TEST(BackgroundWork, AnswersAsideAndLetsFourWait) {
  std::promise<void> begun;
  std::promise<void> mayEnd;
  std::promise<void> allDone;
  int done = 0;  // for the thread of the work
  BackgroundWork work([&] {
    if (++done == 5) {
      allDone.set_value();
    }
  });
  Jobs jobs = {work.Start([&] {
    begun.set_value();
    mayEnd.get_future().wait();
    return TextReply(200, "first");
  })};
  begun.get_future().wait();
  for (int i = 0; i < 4; ++i) {
    jobs.push_back(work.Start([] { return TextReply(200, "later"); }));
    ASSERT_NE(nullptr, jobs.back());
  }
  EXPECT_EQ(nullptr, work.Start([] { return TextReply(200, "too many"); }));
  EXPECT_FALSE(jobs.front()->IsDone());
  mayEnd.set_value();
  allDone.get_future().wait();
  EXPECT_EQ("first\n", jobs.front()->GetReply().body);
  for (const auto& job : jobs) {
    EXPECT_TRUE(job->IsDone());
  }
  EXPECT_EQ("later\n", jobs.back()->GetReply().body);
}

TEST(BackgroundWork, AnswersWithWhatWentWrong) {
  std::promise<void> done;
  BackgroundWork work([&] { done.set_value(); });
  const auto job = work.Start([]() -> Reply { throw std::runtime_error("no disk"); });
  done.get_future().wait();
  EXPECT_EQ(500u, job->GetReply().status);
  EXPECT_EQ("no disk\n", job->GetReply().body);
}

}  // namespace
}  // namespace host
