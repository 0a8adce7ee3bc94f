// Plays WAV files through SDL.
#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

namespace handheld {

/// Plays one sound at a time; a new sound ends the one before. Callers never wait: a thread,
/// started with the first sound, reads files and opens the audio device. Without a working audio
/// device sounds are dropped.
class SoundPlayer {
 public:
  static SoundPlayer& Instance();

  void Play(const std::string& path);
  void Stop();

 private:
  void Request(const std::string& path);
  void Run();
  /// Next path requested; an empty one means silence. No value when the process ends, or with an
  /// open device when the check interval passes without a request.
  std::optional<std::string> NextRequest(bool isDeviceOpen);
  static void ProcessEnds();

  std::mutex mutex;
  std::condition_variable changed;
  std::optional<std::string> request;
  bool isRunning = false;
  bool isEnding = false;
};

}  // namespace handheld
