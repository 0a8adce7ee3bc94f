#include <gtest/gtest.h>
#include <mmsystem.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>

#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

constexpr DWORD USUAL_FLAGS = SND_FILENAME | SND_ASYNC | SND_NOWAIT;

std::string Bytes(std::uint32_t value, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) {
    bytes += static_cast<char>(value >> (8 * i));
  }
  return bytes;
}

/// WAV file with 8-bit mono samples at 44100 Hz.
std::string Wave(const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  return "RIFF" + Bytes(36 + size, 4) + "WAVEfmt " + Bytes(16, 4) + Bytes(1, 2) + Bytes(1, 2) +
         Bytes(44100, 4) + Bytes(44100, 4) + Bytes(1, 2) + Bytes(8, 2) + "data" + Bytes(size, 4) +
         samples;
}

class Sounds : public testing::Test {
 protected:
  Sounds() {
    // SDL asks once, when the first sound is played.
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    folder.Write("Wav/Limit.wav", Wave(std::string(441, '\xC0')));
    handheld::ForgetSoundsStarted();
  }

  BOOL Play(const std::string& name, DWORD flags = USUAL_FLAGS) {
    return PlaySoundW(folder.DevicePath(name).c_str(), nullptr, flags);
  }

  const TempFolder folder;
};

TEST_F(Sounds, AreStartedAndRemembered) {
  EXPECT_TRUE(Play("Wav/Limit.wav"));
  const auto started = handheld::SoundsStarted();
  ASSERT_EQ(1u, started.size());
  EXPECT_EQ(folder.DevicePath("Wav/Limit.wav"), started[0].path);
  EXPECT_EQ(0x22001u, started[0].flags);
}

TEST_F(Sounds, AreNamedWhenTheyAreMissing) {
  EXPECT_FALSE(Play("Wav/Zero.wav"));
  EXPECT_FALSE(Play("Wav/Zero.wav"));
  const std::vector<std::string> files = handheld::UnreadableFiles();
  EXPECT_EQ(1, std::ranges::count(files, folder.Path("Wav/Zero.wav")));
}

TEST_F(Sounds, AreFoundWhateverTheirCase) {
  EXPECT_TRUE(Play("WAV/LIMIT.WAV"));
}

TEST_F(Sounds, ThatAreMissingFail) {
  EXPECT_FALSE(Play("Wav/Zero.wav"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
  EXPECT_FALSE(Play("Wav"));
  EXPECT_TRUE(handheld::SoundsStarted().empty());
}

TEST_F(Sounds, PlayFromFilesInTheBackgroundOnly) {
  EXPECT_FALSE(Play("Wav/Limit.wav", SND_FILENAME));
  EXPECT_FALSE(Play("Wav/Limit.wav", SND_ASYNC));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_TRUE(handheld::SoundsStarted().empty());
}

TEST_F(Sounds, ThatAreNoSoundsDoNoHarm) {
  folder.Write("Wav/Broken.wav", "RIFF....");
  EXPECT_TRUE(Play("Wav/Broken.wav"));
  EXPECT_TRUE(Play("Wav/Limit.wav"));
}

TEST_F(Sounds, StopWithoutAName) {
  EXPECT_TRUE(PlaySoundW(nullptr, nullptr, 0));
  EXPECT_TRUE(Play("Wav/Limit.wav"));
  EXPECT_TRUE(PlaySoundW(nullptr, nullptr, 0));
  EXPECT_EQ(1u, handheld::SoundsStarted().size());
}

TEST_F(Sounds, ManyInQuickSuccessionAreAllRemembered) {
  for (int i = 0; i < 100; ++i) {
    EXPECT_TRUE(Play("Wav/Limit.wav"));
  }
  EXPECT_EQ(100u, handheld::SoundsStarted().size());
}

/// Waits until the predicate holds; the test's own time limit ends a wait in vain.
template <typename Predicate>
void Await(Predicate predicate) {
  while (!predicate()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

[[noreturn]] void PlayInto(const TempFolder& folder, const char* driver) {
  setenv("SDL_AUDIODRIVER", driver, 1);
  setenv("SDL_DISKAUDIOFILE", folder.Path("played.raw").c_str(), 1);
  PlaySoundW(folder.DevicePath("Wav/Limit.wav").c_str(), nullptr, USUAL_FLAGS);
  // 0xC0 is half of the positive range; as 16-bit samples every one of them is 0x4000.
  if (std::string(driver) == "disk") {
    Await([&] {
      return folder.Read("played.raw").find(std::string("\0\x40\0\x40", 4)) != std::string::npos;
    });
  }
  std::exit(7);
}

TEST(SoundsDeathTest, ReachTheAudioDevice) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const TempFolder folder;
  folder.Write("Wav/Limit.wav", Wave(std::string(4410, '\xC0')));
  EXPECT_EXIT(PlayInto(folder, "disk"), testing::ExitedWithCode(7), "");
}

TEST(SoundsDeathTest, WithoutAnAudioDeviceNothingHappens) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const TempFolder folder;
  folder.Write("Wav/Limit.wav", Wave("xxxx"));
  EXPECT_EXIT(PlayInto(folder, "none such"), testing::ExitedWithCode(7), "");
}

}  // namespace
