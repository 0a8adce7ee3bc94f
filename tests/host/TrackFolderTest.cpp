#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "run/TrackFolder.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class TrackFolderTest : public testing::Test {
 protected:
  TrackFolderTest() {
    char name[] = "/tmp/ferolin-tracks-XXXXXX";
    path = mkdtemp(name);
  }
  ~TrackFolderTest() override { fs::remove_all(path); }

  void Write(const std::string& name, const std::string& content) const {
    std::ofstream(path / name) << content;
  }

  fs::path path;
};

using Texts = std::vector<std::string>;

TEST_F(TrackFolderTest, TellsAWholeTrack) {
  Write("Track0001.kml", "cut off, but long ago");
  const TrackFolder folder(path);
  Write("Track0002.kml", "<kml></kml>");
  const TrackFolder::Outcome outcome = folder.Check(true);
  EXPECT_EQ(Texts{"track written to " + (path / "Track0002.kml").string() + " (1 KB)"},
            outcome.texts);
  EXPECT_FALSE(outcome.isLost);
}

TEST_F(TrackFolderTest, ATrackThatIsCutOffIsALoss) {
  for (const char* content : {"", "</km", "<kml>\n</kml"}) {
    const TrackFolder folder(path);
    Write("Track0001.kml", content);
    const TrackFolder::Outcome outcome = folder.Check(true);
    ASSERT_EQ(1u, outcome.texts.size());
    EXPECT_TRUE(
        outcome.texts[0].ends_with("is not complete: writing to " + path.string() + " failed"))
        << outcome.texts[0];
    EXPECT_TRUE(outcome.isLost);
    fs::remove(path / "Track0001.kml");
  }
}

TEST_F(TrackFolderTest, WithoutAPositionNothingIsLost) {
  const TrackFolder folder(path);
  TrackFolder::Outcome outcome = folder.Check(false);
  EXPECT_EQ(Texts{"no track written: there was no position"}, outcome.texts);
  EXPECT_FALSE(outcome.isLost);
  Write("Track0001.kml", "<kml></kml>");
  outcome = folder.Check(false);
  EXPECT_TRUE(outcome.texts[0].ends_with("has no points: there was no position"));
  EXPECT_FALSE(outcome.isLost);
}

TEST_F(TrackFolderTest, AMissingTrackIsALoss) {
  const TrackFolder folder(path);
  fs::remove_all(path);
  const TrackFolder::Outcome outcome = folder.Check(true);
  EXPECT_EQ(
      Texts{"no track written: cannot write to " + path.string() + ": No such file or directory"},
      outcome.texts);
  EXPECT_TRUE(outcome.isLost);
}

}  // namespace
}  // namespace host
