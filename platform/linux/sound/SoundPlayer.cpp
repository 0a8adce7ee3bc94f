#include "sound/SoundPlayer.h"

#include <SDL2/SDL_audio.h>
#include <SDL2/SDL_thread.h>
#include <dlfcn.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace handheld {

namespace {

using namespace std::chrono_literals;

/// Interval of checks whether the sound has ended.
constexpr auto CHECK_INTERVAL = 100ms;
/// Leaves sound systems time for the last buffer; then the device is closed so that it can sleep.
constexpr int IDLE_CHECKS_BEFORE_CLOSE = 20;
/// Longest wait for the closing of the device at the end of the process.
constexpr auto LONGEST_FAREWELL = 500ms;

/// Pause before the next attempt after a failure: probing for a device takes time.
constexpr auto RETRY_INTERVAL = 30s;

constexpr int SAMPLE_RATE = 44100;
constexpr SDL_AudioFormat SAMPLE_FORMAT = AUDIO_S16SYS;
constexpr Uint8 CHANNELS = 2;

/// Samples of a WAV file in the device's format; empty when it is no WAV file.
std::vector<Uint8> ReadSamples(const std::string& path) {
  SDL_AudioSpec spec = {};
  Uint8* data = nullptr;
  Uint32 size = 0;
  if (SDL_LoadWAV(path.c_str(), &spec, &data, &size) == nullptr) {
    return {};
  }
  const std::unique_ptr<Uint8, void (*)(Uint8*)> owner(data, SDL_FreeWAV);
  const std::unique_ptr<SDL_AudioStream, void (*)(SDL_AudioStream*)> stream(
      SDL_NewAudioStream(spec.format, spec.channels, spec.freq, SAMPLE_FORMAT, CHANNELS,
                         SAMPLE_RATE),
      SDL_FreeAudioStream);
  if (stream == nullptr || SDL_AudioStreamPut(stream.get(), data, static_cast<int>(size)) != 0 ||
      SDL_AudioStreamFlush(stream.get()) != 0) {
    return {};
  }
  std::vector<Uint8> samples(static_cast<std::size_t>(SDL_AudioStreamAvailable(stream.get())));
  const int count =
      SDL_AudioStreamGet(stream.get(), samples.data(), static_cast<int>(samples.size()));
  samples.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return samples;
}

void IgnoreMessage(const char*, int, const char*, int, const char*, ...) {}

/// Silences ALSA, which SDL may load: without a sound card it writes a dozen lines to the terminal
/// for every attempt.
void SilenceAlsa() {
  using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
  using SetHandler = int (*)(Handler);
  if (void* symbol = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler")) {
    reinterpret_cast<SetHandler>(symbol)(IgnoreMessage);
  }
}

/// SDL's audio device. Only the player's thread touches it.
class AudioDevice {
 public:
  ~AudioDevice() { Close(); }

  bool IsOpen() const { return id != 0; }
  bool IsPlaying() const { return IsOpen() && SDL_GetQueuedAudioSize(id) > 0; }

  void Play(const std::vector<Uint8>& samples) {
    if (samples.empty() || !Open()) {
      return;
    }
    SDL_ClearQueuedAudio(id);
    SDL_QueueAudio(id, samples.data(), static_cast<Uint32>(samples.size()));
    SDL_PauseAudioDevice(id, 0);
  }

  void Silence() {
    if (IsOpen()) {
      SDL_ClearQueuedAudio(id);
    }
  }

  void Close() {
    if (!IsOpen()) {
      return;
    }
    SDL_CloseAudioDevice(id);
    SDL_AudioQuit();
    id = 0;
  }

 private:
  bool Open() {
    if (IsOpen()) {
      return true;
    }
    const auto now = std::chrono::steady_clock::now();
    if (now < nextAttempt) {
      return false;
    }
    SilenceAlsa();
    // SDL_Init is not thread-safe, and the window may be starting at the same time.
    if (SDL_AudioInit(std::getenv("SDL_AUDIODRIVER")) == 0) {
      SDL_AudioSpec wanted = {};
      wanted.freq = SAMPLE_RATE;
      wanted.format = SAMPLE_FORMAT;
      wanted.channels = CHANNELS;
      wanted.samples = 1024;
      id = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
      if (id == 0) {
        SDL_AudioQuit();
      }
    }
    if (id == 0) {
      nextAttempt = now + RETRY_INTERVAL;
    }
    return id != 0;
  }

  std::chrono::steady_clock::time_point nextAttempt;
  SDL_AudioDeviceID id = 0;
};

}  // namespace

SoundPlayer& SoundPlayer::Instance() {
  static SoundPlayer& player = *new SoundPlayer;
  return player;
}

void SoundPlayer::Play(const std::string& path) {
  Request(path);
}

void SoundPlayer::Stop() {
  Request("");
}

void SoundPlayer::Request(const std::string& path) {
  const std::lock_guard lock(mutex);
  if (!isRunning && path.empty()) {
    return;
  }
  request = path;
  changed.notify_all();
  if (isRunning || isEnding) {
    return;
  }
  isRunning = true;
  std::atexit(ProcessEnds);
  std::thread([this] { Run(); }).detach();
}

std::optional<std::string> SoundPlayer::NextRequest(bool isDeviceOpen) {
  std::unique_lock lock(mutex);
  const auto isThere = [this] { return request.has_value() || isEnding; };
  if (isDeviceOpen) {
    changed.wait_for(lock, CHECK_INTERVAL, isThere);
  } else {
    changed.wait(lock, isThere);
  }
  return std::exchange(request, std::nullopt);
}

void SoundPlayer::Run() {
  {
    AudioDevice device;
    int idleChecks = 0;
    while (true) {
      const auto wanted = NextRequest(device.IsOpen());
      {
        const std::lock_guard lock(mutex);
        if (isEnding) {
          break;
        }
      }
      if (wanted && wanted->empty()) {
        device.Silence();
      }
      if (wanted && !wanted->empty()) {
        device.Play(ReadSamples(*wanted));
      }
      idleChecks = wanted || device.IsPlaying() ? 0 : idleChecks + 1;
      if (idleChecks >= IDLE_CHECKS_BEFORE_CLOSE) {
        device.Close();
      }
    }
  }
  // SDL keeps a last error for each thread and frees it only for threads that it has made.
  SDL_TLSCleanup();
  const std::lock_guard lock(mutex);
  isRunning = false;
  changed.notify_all();
}

void SoundPlayer::ProcessEnds() {
  SoundPlayer& self = Instance();
  std::unique_lock lock(self.mutex);
  self.isEnding = true;
  self.changed.notify_all();
  self.changed.wait_for(lock, LONGEST_FAREWELL, [&self] { return !self.isRunning; });
}

}  // namespace handheld
