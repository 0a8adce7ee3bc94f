#include <mmsystem.h>
#include <sys/stat.h>

#include "core/History.h"
#include "core/LastError.h"
#include "files/Paths.h"
#include "files/UnreadableFiles.h"
#include "handheld.h"
#include "sound/SoundPlayer.h"
#include "text/WideText.h"

namespace handheld {

namespace {

History<Sound>& Started() {
  static History<Sound>& started = *new History<Sound>;
  return started;
}

bool IsPlainFile(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

BOOL Play(LPCWSTR sound, DWORD flags) {
  // Supports files played in the background only.
  constexpr DWORD REQUIRED = SND_FILENAME | SND_ASYNC;
  if ((flags & REQUIRED) != REQUIRED) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  const Location location = Locate(sound);
  if (!location.exists || !IsPlainFile(location.path)) {
    AddUnreadableFile(location.path);
    return Fail(ERROR_FILE_NOT_FOUND, FALSE);
  }
  Started().Add({WideText(sound), flags});
  SoundPlayer::Instance().Play(location.path);
  return TRUE;
}

}  // namespace

std::vector<Sound> SoundsStarted() {
  return Started().GetAll();
}

void ForgetSoundsStarted() {
  Started().Forget();
}

extern "C" BOOL WINAPI PlaySoundW(LPCWSTR sound, HMODULE, DWORD flags) {
  return Guarded<BOOL>(FALSE, [&] {
    if (sound != nullptr) {
      return Play(sound, flags);
    }
    SoundPlayer::Instance().Stop();
    return TRUE;
  });
}

}  // namespace handheld
