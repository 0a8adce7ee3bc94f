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

struct Run {
  const std::function<void()>& whenIdle;
  std::jmp_buf begin = {};
  int exitCode = 0;
};

/// The program that is running; one that waits meanwhile comes back when it ends.
Run* currentRun;

}  // namespace

ATOM ProgramCalls::RegisterClassW(const WNDCLASSW* description) {
  WNDCLASSW entered = *description;
  deviceProcedure = std::exchange(entered.lpfnWndProc, EnterProcedure);
  return ::RegisterClassW(&entered);
}

BOOL ProgramCalls::GetMessageW(MSG* message, HWND window, UINT first, UINT last) {
  if (!currentRun->whenIdle) {
    return ::GetMessageW(message, window, first, last);
  }
  while (!PeekMessageW(message, window, first, last, PM_REMOVE)) {
    currentRun->whenIdle();
  }
  return message->message != WM_QUIT ? TRUE : FALSE;
}

void ProgramCalls::ExitThread(DWORD exitCode) {
  currentRun->exitCode = static_cast<int>(exitCode);
  std::longjmp(currentRun->begin, 1);
}

int RunProgram(const PeImage& image, const std::function<void()>& whenIdle) {
  static char16_t commandLine[] = u"";
  Run run = {whenIdle};
  Run* const waiting = std::exchange(currentRun, &run);
  if (setjmp(run.begin) == 0) {
    CallDeviceWithFour(image.GetBase(), 0, reinterpret_cast<std::uintptr_t>(commandLine), SW_SHOW,
                       image.GetEntry());
    std::fputs("The device's program returned from its entry\n", stderr);
    std::abort();
  }
  currentRun = waiting;
  return run.exitCode;
}
