#include "engine/LoadedEngine.h"

#include <memory>
#include <new>

#include "base/CodePage.h"

namespace app {

namespace {

constexpr LPCWSTR SECTION = TEXT("Application");
/// Long enough for every name and value.
constexpr int TEXT_SIZE = 256;
/// Long enough for every message template and list of recipients: a line of the settings file.
constexpr int LONG_TEXT_SIZE = 0x10000;

/// The buffer lies in the heap: stacks of handhelds are small.
template <class Get>
WideString ReadLongText(Get get) {
  const std::unique_ptr<char[]> buffer(new (std::nothrow) char[LONG_TEXT_SIZE]);
  if (buffer == nullptr) {
    return {};
  }
  buffer[0] = '\0';
  get(buffer.get(), LONG_TEXT_SIZE);
  return ferolin::Widen(buffer.get());
}

}  // namespace

LoadedEngine::LoadedEngine() : module(LoadLibraryW(TEXT("Ferolin.dll"))), missing(Bind(module)) {}

LoadedEngine::~LoadedEngine() {
  if (module != nullptr) {
    FreeLibrary(module);
  }
}

WideString LoadedEngine::GetFolder() const {
  WCHAR path[MAX_PATH] = {};
  GetModuleFileNameW(module, path, MAX_PATH - 1);
  const ferolin::WideStringView whole = path;
  return WideString(whole.substr(0, whole.rfind('\\') + 1));
}

WideString LoadedEngine::GetNameOfSensor(int index) const {
  char text[TEXT_SIZE] = {};
  GetSensorName(index, text, TEXT_SIZE);
  return ferolin::Widen(text);
}

WideString LoadedEngine::GetValueOfSensor(int index) const {
  char text[TEXT_SIZE] = {};
  GetSensorValue(index, text, TEXT_SIZE);
  return ferolin::Widen(text);
}

WideString LoadedEngine::GetStateOfSensor(int index) const {
  char text[TEXT_SIZE] = {};
  GetSensorRegistryString(index, text, TEXT_SIZE);
  return ferolin::Widen(text);
}

WideString LoadedEngine::GetPortName() const {
  char text[MAX_PATH] = {};
  GetComPortName(text, MAX_PATH);
  return ferolin::Widen(text);
}

WideString LoadedEngine::GetSmsText() const {
  return ReadLongText(GetSMSText);
}

WideString LoadedEngine::GetSmsRecipients() const {
  return ReadLongText(GetSMSAddress);
}

WideString LoadedEngine::ReadSetting(LPCWSTR key) const {
  char text[TEXT_SIZE] = {};
  GetIniFileValue(text, TEXT_SIZE, SECTION, key, TEXT(""));
  return ferolin::Widen(text);
}

void LoadedEngine::KeepSetting(LPCWSTR key, const WideString& value) const {
  SetIniFileValue(SECTION, key, value.c_str(), TEXT(""));
}

}  // namespace app
