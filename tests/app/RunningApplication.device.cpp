#include "RunningApplication.h"

#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <vector>

#include "device/count/Counter.h"
#include "device/loader/CoreDll.h"
#include "device/loader/Program.h"

namespace app {

namespace {

constexpr std::size_t STACK_SIZE = 1024 * 1024;

/// The program on a stack of its own: it runs until it waits for a message.
class ProgramApplication : public RunningApplication {
 public:
  ProgramApplication() : image(DEVICE_PROGRAM, FindDeviceFunction), stack(STACK_SIZE) {
    AnnounceRange();
    getcontext(&program);
    program.uc_stack.ss_sp = stack.data();
    program.uc_stack.ss_size = stack.size();
    program.uc_link = &test;
    starting = this;
    makecontext(&program, &ProgramApplication::Run, 0);
    Pump();
    window = isRunning ? FindWindowW(u"FerolinApplication", nullptr) : nullptr;
  }

  bool IsRunning() const { return isRunning; }
  HWND GetWindow() const override { return isRunning ? window : nullptr; }

  void Pump() override {
    if (isRunning) {
      swapcontext(&test, &program);
    }
  }

 private:
  /// Lets a counting emulator know whose instructions to count.
  void AnnounceRange() const {
    const auto begin = reinterpret_cast<std::uintptr_t>(image.GetBase());
    syscall(SYS_sched_yield, counter::MARK, counter::SET_RANGE, begin, begin + image.GetSize());
  }

  static void Run() {
    ProgramApplication& self = *starting;
    RunProgram(self.image, [&self] { swapcontext(&self.program, &self.test); });
    self.isRunning = false;
  }

  static ProgramApplication* starting;

  const PeImage image;
  std::vector<char> stack;
  ucontext_t program = {};
  ucontext_t test = {};
  bool isRunning = true;
  HWND window = nullptr;
};

ProgramApplication* ProgramApplication::starting = nullptr;

}  // namespace

/// The program loads the engine itself.
std::unique_ptr<RunningApplication> RunningApplication::Start(const LoadedEngine&) {
  auto application = std::make_unique<ProgramApplication>();
  return application->IsRunning() ? std::move(application) : nullptr;
}

}  // namespace app
