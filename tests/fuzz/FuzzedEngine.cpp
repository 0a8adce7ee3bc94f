#include "FuzzedEngine.h"

#include <handheld.h>

#include <cstdlib>
#include <filesystem>

#include "base/Format.h"
#include "render/Canvas.h"

namespace fuzz {

namespace {

constexpr const WCHAR* CLASS_NAME = TEXT("Fuzzer");
constexpr const WCHAR* DEVICE_FOLDER = TEXT("\\Ferolin");

}  // namespace

DeviceFolder& DeviceFolder::Instance() {
  static DeviceFolder folder;
  return folder;
}

DeviceFolder::DeviceFolder() {
  setenv("FONTCONFIG_FILE", FONTS_FILE, 1);
  std::filesystem::create_symlink(ASSETS_FOLDER "/lcd-u.ttf", folder.Path("lcd-u.ttf"));
  handheld::MapPath(DEVICE_FOLDER, folder.Path());
  handheld::SetModuleDirectory(folder.Path());
  handheld::SetTimeZone("UTC0");
  handheld::SetBattery(0, 65);
  handheld::SetTimeRate(1000);
  // Any loaded library will do: it only has to lie in the folder.
  module = LoadLibraryW(handheld::DevicePath(ANY_LIBRARY).c_str());
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = &DefWindowProcW;
  windowClass.lpszClassName = CLASS_NAME;
  RegisterClassW(&windowClass);
}

FuzzedEngine::FuzzedEngine(std::string_view settings) {
  DeviceFolder& device = DeviceFolder::Instance();
  device.GetFolder().Write("TachyMo.ini", settings);
  ferolin::DllMain(device.GetModule(), DLL_PROCESS_ATTACH, nullptr);
  window = CreateWindowExW(0, CLASS_NAME, TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 240, 320, nullptr,
                           nullptr, nullptr, nullptr);
  SetRenderWindow(window);
}

FuzzedEngine::~FuzzedEngine() {
  SetRenderWindow(nullptr);
  ferolin::DllMain(DeviceFolder::Instance().GetModule(), DLL_PROCESS_DETACH, nullptr);
  DestroyWindow(window);
  handheld::ForgetMessagesPosted();
  handheld::ForgetSoundsStarted();
}

void FuzzedEngine::ShowViews(int second) const {
  for (int view = 0; view < FEROLIN_VIEW_COUNT; ++view) {
    SetCurRenderWidget(view);
    const std::string rmc =
        ferolin::Format("$GPRMC,%02d%02d%02d,A,48%02d.5,N,01131.5,E,%d.5,84,230324,,*00",
                        second / 3600 % 24, second / 60 % 60, second % 60, view, second % 90);
    ferolin::theEngine->OnUpdate(rmc.c_str());
    ferolin::theEngine->GetRedraw().Wait();
    ++second;
  }
}

}  // namespace fuzz
