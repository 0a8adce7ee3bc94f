// Stands in for the engine's Linux library: loads the device's own and passes every call on to it.

#include <sys/syscall.h>
#include <unistd.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "../count/Counter.h"
#include "CoreDll.h"
#include "Crossing.h"
#include "PeImage.h"

namespace {

constexpr const char* EXPORT_NAMES[] = {
#define EXPORT(name) #name,
#include "ExportNames.inc"
#undef EXPORT
};

std::unique_ptr<PeImage> image;

std::string LibraryPath() {
  const char* chosen = std::getenv("FEROLIN_DLL");
  return chosen != nullptr ? chosen : DEVICE_LIBRARY;
}

void FindExports() {
  void** slot = deviceExports;
  for (const char* name : EXPORT_NAMES) {
    *slot = image->FindExport(name);
    if (*slot == nullptr) {
      throw std::runtime_error(std::string("does not export ") + name);
    }
    ++slot;
  }
}

/// Lets tests/device/count-instructions know whose instructions to count.
void AnnounceRange() {
  const auto begin = reinterpret_cast<std::uintptr_t>(image->GetBase());
  syscall(SYS_sched_yield, counter::MARK, counter::SET_RANGE, begin, begin + image->GetSize());
}

BOOL CallEntry(HINSTANCE module, DWORD reason) {
  return static_cast<BOOL>(CallDevice(module, reason, nullptr, image->GetEntry()));
}

}  // namespace

extern "C" [[gnu::visibility("hidden")]] BOOL WINAPI DllMain(HINSTANCE module, DWORD reason,
                                                             LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    try {
      image = std::make_unique<PeImage>(LibraryPath(), FindDeviceFunction);
      FindExports();
      AnnounceRange();
    } catch (const std::runtime_error& error) {
      std::fprintf(stderr, "%s %s\n", LibraryPath().c_str(), error.what());
      image.reset();
      return FALSE;
    }
  }
  const BOOL isWilling = image != nullptr && CallEntry(module, reason);
  if (reason == DLL_PROCESS_DETACH || !isWilling) {
    image.reset();
  }
  return isWilling;
}
