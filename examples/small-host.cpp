// Prints the speed after each of the first ten positions that a receiver sends.
//
// usage: small-host [DEVICE]      /dev/ttyUSB0 unless told otherwise
//
// The program keeps the engine's settings in a folder of its own. It therefore loads the engine by
// itself, once the folder is chosen.

#include <dlfcn.h>
#include <ferolin-device.h>
#include <ferolin.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

class Engine {
 public:
  Engine() : library(dlopen("libferolin.so.0", RTLD_NOW)) {
    if (library == nullptr) {
      throw std::runtime_error(dlerror());
    }
  }
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  // The engine writes its settings now.
  ~Engine() { dlclose(library); }

  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(dlsym(library, name));
  }

 private:
  void* library;
};

void PrintSpeeds(const std::string& device) {
  const char* const home = std::getenv("HOME");
  if (home == nullptr ||
      ferolin_set_folder((std::string(home) + "/.local/share/small-host").c_str()) == 0) {
    throw std::runtime_error("there is no folder for settings");
  }
  ferolin_map_serial_port("COM1", device.c_str());
  const Engine engine;
  const auto getName = engine.Find<decltype(GetSensorName)>("GetSensorName");
  const auto getValue = engine.Find<decltype(GetSensorValue)>("GetSensorValue");

  const HWND window = ferolin_create_window(0, 0);
  engine.Find<decltype(SetUseGPSAPI)>("SetUseGPSAPI")(0);
  engine.Find<decltype(SetComPortName)>("SetComPortName")(u"COM1");
  engine.Find<decltype(SetComPortSpeed)>("SetComPortSpeed")(4800);
  if (engine.Find<decltype(StartCallBack)>("StartCallBack")(window) == 0) {
    throw std::runtime_error("the engine does not start");
  }
  for (int updates = 0; updates < 10;) {
    if (ferolin_wait(window, -1) == FEROLIN_BUTTON_NONE) {
      std::array<char, 256> name{};
      std::array<char, 256> value{};
      getName(FEROLIN_SENSOR_SPEED, name.data(), name.size());
      getValue(FEROLIN_SENSOR_SPEED, value.data(), value.size());
      std::cout << name.data() << ": " << value.data() << std::endl;
      ++updates;
    }
  }
  engine.Find<decltype(StopCallBack)>("StopCallBack")();
  ferolin_destroy_window(window);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    PrintSpeeds(argc > 1 ? argv[1] : "/dev/ttyUSB0");
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
