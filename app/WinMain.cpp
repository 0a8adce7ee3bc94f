#include <windows.h>

#include "window/Program.h"

/// The command line is not read.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
  return app::RunApplication(instance);
}
