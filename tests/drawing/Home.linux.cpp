#include "Home.h"

#include <handheld.h>

namespace drawing {

/// Any loaded library will do: it only has to lie in the folder.
HMODULE PrepareHome() {
  constexpr BYTE CHARGING = 8;
  handheld::SetScreen(800, 800, 96);
  handheld::SetTimeZone("UTC0");
  handheld::SetBattery(CHARGING, 65);
  handheld::SetModuleDirectory(PROGRAM_FOLDER);
  return LoadLibraryW(handheld::DevicePath(ANY_LIBRARY).c_str());
}

}  // namespace drawing
