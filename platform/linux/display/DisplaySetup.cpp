#include "display/DisplaySetup.h"

#include <SDL2/SDL.h>

#include <atomic>

namespace handheld {

namespace {

std::atomic<bool> keepsAwake = true;

}  // namespace

std::optional<DisplaySize> FindDisplaySize() {
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
    return std::nullopt;
  }
  SDL_Rect bounds = {};
  const bool isKnown = SDL_GetDisplayBounds(0, &bounds) == 0 && bounds.w > 0 && bounds.h > 0;
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
  return isKnown ? std::optional(DisplaySize{bounds.w, bounds.h}) : std::nullopt;
}

void KeepDisplaysAwake(bool stayAwake) {
  keepsAwake = stayAwake;
}

bool AreDisplaysKeptAwake() {
  return keepsAwake;
}

}  // namespace handheld
