#include "EngineLibrary.h"

#include <gtest/gtest.h>

namespace e2e {

namespace {

constexpr int TEXT_SIZE = 512;

}  // namespace

EngineLibrary::EngineLibrary() : module(LoadLibraryW(TEXT("Ferolin.dll"))) {
  if (module == nullptr) {
    ADD_FAILURE() << "Ferolin.dll does not load";
    return;
  }
#define FEROLIN_FIND(name)                                                 \
  name = reinterpret_cast<decltype(name)>(                                 \
      reinterpret_cast<void (*)()>(GetProcAddressW(module, TEXT(#name)))); \
  EXPECT_NE(nullptr, name) << #name;
  FEROLIN_EXPORTS(FEROLIN_FIND)
#undef FEROLIN_FIND
}

void EngineLibrary::Unload() {
  if (module != nullptr) {
    FreeLibrary(module);
    module = nullptr;
  }
}

std::string EngineLibrary::SensorName(int index) const {
  char text[TEXT_SIZE] = {};
  GetSensorName(index, text, sizeof text);
  return text;
}

std::string EngineLibrary::SensorValue(int index) const {
  char text[TEXT_SIZE] = {};
  GetSensorValue(index, text, sizeof text);
  return text;
}

std::string EngineLibrary::RegistryString(int index) const {
  char text[TEXT_SIZE] = {};
  GetSensorRegistryString(index, text, sizeof text);
  return text;
}

std::string EngineLibrary::PortName() const {
  char text[TEXT_SIZE] = {};
  GetComPortName(text, sizeof text);
  return text;
}

std::string EngineLibrary::LogFolder() const {
  char text[TEXT_SIZE] = {};
  GetLogFolder(text, sizeof text);
  return text;
}

std::string EngineLibrary::SmsText() const {
  char text[TEXT_SIZE] = {};
  GetSMSText(text, sizeof text);
  return text;
}

std::string EngineLibrary::SmsAddress() const {
  char text[TEXT_SIZE] = {};
  GetSMSAddress(text, sizeof text);
  return text;
}

std::string EngineLibrary::IniValue(LPCWSTR section, LPCWSTR key) const {
  char text[TEXT_SIZE] = {};
  GetIniFileValue(text, sizeof text, section, key, TEXT(""));
  return text;
}

std::string EngineLibrary::WidgetName(int index) const {
  char text[TEXT_SIZE] = {};
  GetWidgetName(index, text, sizeof text);
  return text;
}

}  // namespace e2e
