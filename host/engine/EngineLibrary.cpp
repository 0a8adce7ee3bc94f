#include "engine/EngineLibrary.h"

#include <array>

#include "base/HostError.h"
#include "handheld.h"

namespace host {

namespace {

/// Long enough for every name, value and state.
using Buffer = std::array<char, 256>;

std::string Utf8(const Buffer& buffer) {
  return handheld::Utf8FromAnsi(buffer.data());
}

template <class Function>
void Find(HMODULE module, const char* name, Function& function) {
  const FARPROC found = GetProcAddressW(module, handheld::WideFromUtf8(name).c_str());
  // Compilers allow the cast from one function type to another by way of this type.
  function = reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
  if (function == nullptr) {
    throw HostError(std::string("the engine library has no ") + name);
  }
}

EngineLibrary::Functions FindFunctions(HMODULE module) {
  EngineLibrary::Functions functions;
#define FIND(name) Find(module, #name, functions.name);
  FEROLIN_HOST_FUNCTIONS(FIND)
#undef FIND
  return functions;
}

std::string DescribeLoadError(DWORD error) {
  return error == ERROR_MOD_NOT_FOUND
             ? "there is no engine library, libferolin.so, that can be loaded"
             : "cannot load the engine library: error " + std::to_string(error);
}

}  // namespace

EngineLibrary::EngineLibrary() : module(LoadLibraryW(TEXT("Ferolin.dll"))) {
  if (module == nullptr) {
    throw HostError(DescribeLoadError(GetLastError()));
  }
  try {
    functions = FindFunctions(module);
    for (int i = 0; i < CountSensors(); ++i) {
      names.push_back(GetSensorName(i));
    }
  } catch (...) {
    FreeLibrary(module);
    throw;
  }
}

EngineLibrary::~EngineLibrary() {
  FreeLibrary(module);
}

int EngineLibrary::CountSensors() const {
  return functions.GetSensorsCount();
}

std::string EngineLibrary::GetSensorName(int index) const {
  Buffer buffer = {};
  functions.GetSensorName(index, buffer.data(), static_cast<int>(buffer.size()));
  return Utf8(buffer);
}

std::string EngineLibrary::GetSensorValue(int index) const {
  Buffer buffer = {};
  functions.GetSensorValue(index, buffer.data(), static_cast<int>(buffer.size()));
  return Utf8(buffer);
}

bool EngineLibrary::IsSensorSaveable(int index) const {
  return functions.IsSensorSaveable(index) != 0;
}

std::string EngineLibrary::GetSensorState(int index) const {
  Buffer buffer = {};
  functions.GetSensorRegistryString(index, buffer.data(), static_cast<int>(buffer.size()));
  return Utf8(buffer);
}

Readouts EngineLibrary::GetReadouts() const {
  Readouts readouts;
  readouts.reserve(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    readouts.push_back({names[i], GetSensorValue(static_cast<int>(i))});
  }
  return readouts;
}

Readouts EngineLibrary::GetStates() const {
  Readouts states;
  for (int i = 0; i < CountSensors(); ++i) {
    if (IsSensorSaveable(i)) {
      states.push_back({GetSensorName(i), GetSensorState(i)});
    }
  }
  return states;
}

}  // namespace host
