#include "CoreDll.h"

#include <crt.h>
#include <dlfcn.h>
#include <strings.h>
#include <windows.h>

#include <algorithm>
#include <bit>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string_view>

#include "Crossing.h"
#include "Program.h"

namespace {

// Threads: their procedures lie in the library.

struct ThreadStart {
  LPTHREAD_START_ROUTINE procedure;
  LPVOID argument;
};

DWORD RunThread(LPVOID argument) {
  const std::unique_ptr<ThreadStart> start(static_cast<ThreadStart*>(argument));
  return CallDevice(start->argument, 0, nullptr, reinterpret_cast<void*>(start->procedure));
}

HANDLE StartThread(SECURITY_ATTRIBUTES* security, DWORD stackSize, LPTHREAD_START_ROUTINE procedure,
                   LPVOID argument, DWORD flags, LPDWORD threadId) {
  auto start = std::make_unique<ThreadStart>(procedure, argument);
  const HANDLE thread = CreateThread(security, stackSize, RunThread, start.get(), flags, threadId);
  if (thread != nullptr) {
    start.release();
  }
  return thread;
}

// Printing: the device packs variadic arguments, so that a double is simply the next two words. It
// returns -1 for text longer than the buffer and ends only shorter text with a zero.

int PrintPacked(char* out, std::size_t size, const char* format, ...) {
  va_list words;
  va_start(words, format);
  char text[512];
  const std::string_view conversion = format;
  if (conversion.find_first_of("eEfgG") != std::string_view::npos) {
    const std::uint64_t low = va_arg(words, std::uint32_t);
    const std::uint64_t high = va_arg(words, std::uint32_t);
    CrtPrintDouble(text, sizeof text, format, std::bit_cast<double>(high << 32 | low));
  } else {
    CrtPrintInt(text, sizeof text, format, va_arg(words, int));
  }
  va_end(words);
  const std::size_t length = std::strlen(text);
  std::memcpy(out, text, std::min(length + 1, size));
  return length <= size ? static_cast<int>(length) : -1;
}

// Libraries: the device's own can be asked for.

int coreDll;
int ole32;
const std::map<std::string, HMODULE> OWN_LIBRARIES = {
    {"coredll.dll", reinterpret_cast<HMODULE>(&coreDll)},
    {"ole32.dll", reinterpret_cast<HMODULE>(&ole32)},
};
/// All other functions are COREDLL's.
const std::set<std::string_view> OLE32_FUNCTIONS = {"CoCreateInstance", "CoInitializeEx",
                                                    "CoUninitialize"};

/// True for what the environment variable FEROLIN_DEVICE_LACKS names, separated by spaces. Says so,
/// that a test can tell what was asked for.
bool IsLacking(const std::string& name) {
  const char* lacking = std::getenv("FEROLIN_DEVICE_LACKS");
  std::istringstream names(lacking != nullptr ? lacking : "");
  if (std::find(std::istream_iterator<std::string>(names), {}, name) ==
      std::istream_iterator<std::string>()) {
    return false;
  }
  std::fprintf(stderr, "The device lacks %s\n", name.c_str());
  return true;
}

std::string Narrow(std::u16string_view wide) {
  return {wide.begin(), wide.end()};
}

HMODULE LoadDeviceLibrary(LPCWSTR name) {
  const auto own = name != nullptr ? OWN_LIBRARIES.find(Narrow(name)) : OWN_LIBRARIES.end();
  if (own == OWN_LIBRARIES.end()) {
    return LoadLibraryW(name);
  }
  return IsLacking(own->first) ? nullptr : own->second;
}

FARPROC FindProcedure(HMODULE module, LPCWSTR name) {
  for (const auto& [library, own] : OWN_LIBRARIES) {
    if (module == own) {
      return reinterpret_cast<FARPROC>(FindDeviceFunction(library, Narrow(name)));
    }
  }
  return GetProcAddressW(module, name);
}

[[noreturn]] void EndByException(DWORD code) {
  std::fprintf(stderr, "The device's library raised exception %08X\n", code);
  std::abort();
}

template <class Function>
void* AddressOf(Function* function) {
  return reinterpret_cast<void*>(function);
}

const std::map<std::string_view, void*> ADAPTED = {
    {"CreateThread", AddressOf(StartThread)},
    {"GetProcAddressW", AddressOf(FindProcedure)},
    {"ExitThread", AddressOf(ProgramCalls::ExitThread)},
    {"GetMessageW", AddressOf(ProgramCalls::GetMessageW)},
    {"RegisterClassW", AddressOf(ProgramCalls::RegisterClassW)},
    {"LoadLibraryW", AddressOf(LoadDeviceLibrary)},
    {"RaiseException", AddressOf(EndByException)},
    {"_atoi64", AddressOf(CrtParseInt64)},
    {"_msize", AddressOf(CrtBlockSize)},
    {"_snprintf", AddressOf(PrintPacked)},
    {"atof", AddressOf(CrtParseDouble)},
};

}  // namespace

void* FindDeviceFunction(const std::string& library, const std::string& name) {
  const char* owner = OLE32_FUNCTIONS.contains(name) ? "ole32.dll" : "coredll.dll";
  if (strcasecmp(owner, library.c_str()) != 0 || IsLacking(name)) {
    return nullptr;
  }
  static std::map<std::string, void*> known;
  const auto before = known.find(name);
  if (before != known.end()) {
    return before->second;
  }
  const auto adapted = ADAPTED.find(name);
  void* function = adapted != ADAPTED.end() ? adapted->second : dlsym(RTLD_DEFAULT, name.c_str());
  return function == nullptr ? nullptr : known[name] = MakeWayOut(name, function);
}
