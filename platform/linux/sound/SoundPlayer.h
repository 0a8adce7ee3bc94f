// Plays WAV files through SDL.
#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

namespace handheld {

/// Plays one sound at a time; a new one cuts the one before it off. Files are read and the audio
/// device is opened on a thread of its own, made for the first sound, so that callers never wait.
/// Without a working audio device sounds are dropped.
class SoundPlayer {
 public:
  static SoundPlayer& Instance();

  void Play(const std::string& path);
  void Stop();

 private:
  void Request(const std::string& path);
  void Run();
  /// Next path asked for; empty means silence. Nothing when there is no wish within `patience` (no
  /// limit when nothing plays) or the process ends.
  std::optional<std::string> NextRequest(bool isDeviceOpen);
  static void ProcessEnds();

  std::mutex mutex;
  std::condition_variable changed;
  std::optional<std::string> request;
  bool isRunning = false;
  bool isEnding = false;
};

}  // namespace handheld
