#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string>

#include "base/FileDescriptor.h"
#include "outputs/StandardOutput.h"

namespace host {
namespace {

/// Puts a pipe in place of standard output.
class StandardOutputTest : public testing::Test {
 protected:
  StandardOutputTest() : former(dup(STDOUT_FILENO)) {
    std::array<int, 2> ends = {};
    EXPECT_EQ(0, pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK));
    reader = FileDescriptor(ends[0]);
    dup2(ends[1], STDOUT_FILENO);
    close(ends[1]);
  }
  ~StandardOutputTest() override { dup2(former.Get(), STDOUT_FILENO); }

  /// What has arrived so far.
  std::string Take() {
    std::string text;
    std::array<char, 4096> buffer = {};
    for (ssize_t count = 0; (count = read(reader.Get(), buffer.data(), buffer.size())) > 0;) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  FileDescriptor former;
  FileDescriptor reader;
  StandardOutput output;
};

TEST_F(StandardOutputTest, WritesAtOnce) {
  EXPECT_TRUE(output.Write("one\n"));
  EXPECT_EQ("one\n", Take());
}

TEST_F(StandardOutputTest, GathersUntilItIsFlushed) {
  output.Gather();
  output.Write("one\n");
  output.Write("two\n");
  EXPECT_EQ("", Take());
  output.Flush();
  EXPECT_EQ("one\ntwo\n", Take());
  output.Flush();
  EXPECT_EQ("", Take());
}

TEST_F(StandardOutputTest, WritesABlockByItself) {
  output.Gather();
  const std::string half(32768, 'a');
  output.Write(half);
  EXPECT_EQ("", Take());
  output.Write(half);
  EXPECT_EQ(half + half, Take());
}

TEST_F(StandardOutputTest, WritesNothingMoreAfterAFailure) {
  std::signal(SIGPIPE, SIG_IGN);
  reader = FileDescriptor();
  output.Gather();
  EXPECT_TRUE(output.Write("one\n"));
  output.Flush();
  EXPECT_TRUE(output.IsBroken());
  EXPECT_EQ(EPIPE, output.GetError());
  EXPECT_FALSE(output.Write("two\n"));
}

}  // namespace
}  // namespace host
