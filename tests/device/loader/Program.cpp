#include "Program.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "Crossing.h"

namespace {

WNDPROC deviceProcedure;

LRESULT EnterProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return static_cast<LRESULT>(CallDeviceWithFour(window, message, wParam,
                                                 static_cast<std::uint32_t>(lParam),
                                                 reinterpret_cast<void*>(deviceProcedure)));
}

std::jmp_buf programBegin;
int programExitCode;

}  // namespace

ATOM ProgramCalls::RegisterClassW(const WNDCLASSW* description) {
  WNDCLASSW entered = *description;
  deviceProcedure = std::exchange(entered.lpfnWndProc, EnterProcedure);
  return ::RegisterClassW(&entered);
}

void ProgramCalls::ExitThread(DWORD exitCode) {
  programExitCode = static_cast<int>(exitCode);
  std::longjmp(programBegin, 1);
}

int RunProgram(const PeImage& image) {
  static char16_t commandLine[] = u"";
  if (setjmp(programBegin) == 0) {
    CallDeviceWithFour(image.GetBase(), 0, reinterpret_cast<std::uintptr_t>(commandLine), SW_SHOW,
                       image.GetEntry());
    std::fputs("The device's program returned from its entry\n", stderr);
    std::abort();
  }
  return programExitCode;
}
