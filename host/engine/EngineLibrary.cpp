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

std::string DescribeLoadError(DWORD error) {
  return error == ERROR_MOD_NOT_FOUND
             ? "there is no engine library, libferolin.so, that can be loaded"
             : "cannot load the engine library: error " + std::to_string(error);
}

}  // namespace

EngineLibrary::EngineLibrary() {
  if (loaded.GetMissing() != nullptr) {
    throw HostError("the engine library has no " + handheld::Utf8FromWide(loaded.GetMissing()));
  }
  if (!loaded.IsLoaded()) {
    throw HostError(DescribeLoadError(GetLastError()));
  }
  for (int i = 0; i < CountSensors(); ++i) {
    names.push_back(GetSensorName(i));
  }
}

int EngineLibrary::CountSensors() const {
  return loaded.GetSensorsCount();
}

std::string EngineLibrary::GetSensorName(int index) const {
  Buffer buffer = {};
  loaded.GetSensorName(index, buffer.data(), static_cast<int>(buffer.size()));
  return Utf8(buffer);
}

std::string EngineLibrary::GetSensorValue(int index) const {
  Buffer buffer = {};
  loaded.GetSensorValue(index, buffer.data(), static_cast<int>(buffer.size()));
  return Utf8(buffer);
}

bool EngineLibrary::IsSensorSaveable(int index) const {
  return loaded.IsSensorSaveable(index) != 0;
}

std::string EngineLibrary::GetSensorState(int index) const {
  Buffer buffer = {};
  loaded.GetSensorRegistryString(index, buffer.data(), static_cast<int>(buffer.size()));
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

void EngineLibrary::RefreshValues(Readouts& readouts) const {
  for (std::size_t i = 0; i < readouts.size(); ++i) {
    readouts[i].value = GetSensorValue(static_cast<int>(i));
  }
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
