#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "TestFolder.h"
#include "sources/PseudoTerminal.h"
#include "sources/SearchSource.h"

namespace host {
namespace {

/// Nobody listens at this port.
constexpr const char* NO_GPSD = "127.0.0.1:1";
const std::string SENTENCE = "$GPRMC,120000,A,1,N,2,E,3,4,010120,,*28\r\n";

TEST(HasSentence, WantsAWholeLineWithARightChecksum) {
  EXPECT_TRUE(HasSentence(SENTENCE));
  EXPECT_TRUE(HasSentence("\xF3\x80,A,1*00\r\n\r\n" + SENTENCE));
  EXPECT_TRUE(HasSentence("$GPRM" + SENTENCE + "$GP"));
  EXPECT_FALSE(HasSentence(SENTENCE.substr(0, SENTENCE.size() - 2)));
  EXPECT_FALSE(HasSentence("$GPRMC,120000,A,1,N,2,E,3,4,010120,,*29\r\n"));
  EXPECT_FALSE(HasSentence("$GPRMC,120000,A,1,N,2,E,3,4,010120,,\r\n"));
  EXPECT_FALSE(HasSentence(""));
}

class SearchSourceTest : public testing::Test {
 protected:
  ~SearchSourceTest() override {
    isDone = true;
    if (sender.joinable()) {
      sender.join();
    }
  }

  std::string Path(const std::string& name) const { return folder.GetPath() + "/" + name; }

  void Plug(const PseudoTerminal& line, const std::string& name) const {
    std::filesystem::create_symlink(line.GetDevice(), Path(name));
  }

  /// A receiver that sends often.
  void SendAt(const PseudoTerminal& line) {
    sender = std::thread([this, &line] {
      while (!isDone) {
        line.Write(SENTENCE);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
      }
    });
  }

  SearchSource::Wishes Wishes() const { return {{}, 0, NO_GPSD, folder.GetPath()}; }

  TestFolder folder;
  PseudoTerminal silent;
  PseudoTerminal sending;
  std::atomic<bool> isDone = false;
  std::thread sender;
};

TEST_F(SearchSourceTest, FindsThePortThatSendsSentences) {
  Plug(sending, "ttyUSB0");
  SendAt(sending);
  SearchSource source(Wishes());
  const std::optional<std::string> bytes = source.Read();
  EXPECT_TRUE(HasSentence(bytes.value_or("")));
  EXPECT_EQ("", source.GetTrouble());
  EXPECT_EQ("ttyUSB0 at 9600", source.GetName());
  EXPECT_EQ((SearchSource::Receiver{Path("ttyUSB0"), 9600}), source.GetFound());
  EXPECT_FALSE(source.Read().value_or("").empty());
}

TEST_F(SearchSourceTest, TriesTheReceiverUsedLastFirst) {
  Plug(silent, "ttyACM0");
  Plug(sending, "ttyUSB0");
  SendAt(sending);
  SearchSource::Wishes wishes = Wishes();
  wishes.last = {Path("ttyUSB0"), 57600};
  SearchSource source(wishes);
  source.Read();
  EXPECT_EQ((SearchSource::Receiver{Path("ttyUSB0"), 57600}), source.GetFound());
}

TEST_F(SearchSourceTest, ListensAtTheWantedRateAlone) {
  Plug(sending, "ttyUSB0");
  SendAt(sending);
  SearchSource::Wishes wishes = Wishes();
  wishes.last = {Path("ttyUSB0"), 57600};
  wishes.baudRate = 230400;
  SearchSource source(wishes);
  source.Read();
  EXPECT_EQ("ttyUSB0 at 230400", source.GetName());
}

TEST_F(SearchSourceTest, SaysWhatItTriesAndCanBeStopped) {
  SearchSource source(Wishes());
  std::thread reader([&source] { EXPECT_EQ(std::nullopt, source.Read()); });
  const auto await = [&source](const std::string& what) {
    for (int i = 0; i < 10000 && source.GetTrouble() != what; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(what, source.GetTrouble());
  };
  await("looking for a receiver: none is plugged in");
  Plug(silent, "ttyUSB0");
  await("looking for a receiver: ttyUSB0 at 9600");
  await("looking for a receiver: ttyUSB0 at 4800");
  source.Stop();
  reader.join();
  EXPECT_EQ(std::nullopt, source.GetFound());
}

TEST_F(SearchSourceTest, LooksAgainWhenTheReceiverIsUnplugged) {
  auto first = std::make_unique<PseudoTerminal>();
  Plug(*first, "ttyUSB0");
  first->Write(SENTENCE);
  SearchSource source(Wishes());
  {
    // The line is emptied when its rate is set, so the sentence has to come again.
    std::atomic<bool> isHeard = false;
    std::thread speaking([&] {
      while (!isHeard) {
        first->Write(SENTENCE);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
      }
    });
    EXPECT_TRUE(source.Read());
    isHeard = true;
    speaking.join();
  }
  std::filesystem::remove(Path("ttyUSB0"));
  first.reset();
  Plug(sending, "ttyACM0");
  SendAt(sending);
  while (source.GetName() == "ttyUSB0 at 9600") {
    ASSERT_TRUE(source.Read());
  }
  EXPECT_EQ("ttyACM0 at 9600", source.GetName());
}

}  // namespace
}  // namespace host
