// Does what is worth counting, in windows that CounterPlugin sees: updates of several drives without
// a view, and with each view. Prints what each window's number stands for.

#include <handheld.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "../../e2e/EngineTest.h"
#include "Counter.h"

namespace {

using e2e::Device;
using e2e::EngineLibrary;
using e2e::HostWindow;
using e2e::Receiver;
using e2e::Sentence;
using namespace std::chrono_literals;

constexpr unsigned REPEATS = 120;  // two crossings of the drive through town

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string Time(int second) {
  return "12" + TwoDigits(second / 60 % 60) + TwoDigits(second % 60);
}

std::string Place(int second) {
  return "4807." + TwoDigits(second % 100) + "8,N,01131." + TwoDigits(second * 3 % 100) + "0,E";
}

std::string RmcAt(int second, int knots) {
  return Sentence("GPRMC," + Time(second) + ",A," + Place(second) + "," + TwoDigits(knots) +
                  ".4,084.4,230324,003.1,W");
}

/// A fast drive, again and again from 37 to 130 km/h.
std::string Rmc(int second) {
  return RmcAt(second, 20 + second % 50);
}

/// From crossing to crossing at up to 50 km/h, with a stop of ten seconds every minute.
std::string TownRmc(int second) {
  const int phase = second % 60;
  const int knots = std::min({phase * 2, 27, (50 - phase) * 3});
  return knots > 0 ? RmcAt(second, knots)
                   : Sentence("GPRMC," + Time(second) + ",A," + Place(second) +
                              ",0.0,084.4,230324,003.1,W");
}

/// On foot at 6 to 9 km/h.
std::string WalkRmc(int second) {
  return RmcAt(second, 3 + second % 2);
}

std::string Epoch(int second) {
  return Sentence("GPGGA," + Time(second) + "," + Place(second) + ",1,08,0.9,5" +
                  TwoDigits(second % 100) + ".4,M,46.9,M,,") +
         Sentence("GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1") +
         Sentence("GPGSV,3,1,12,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45") +
         Sentence("GPGSV,3,2,12,03,40,083,46,04,17,308,41,15,07,344,39,16,22,228,45") +
         Sentence("GPGSV,3,3,12,05,40,083,46,06,17,308,41,17,07,344,39,18,22,228,45") +
         Sentence("GPGLL," + Place(second) + "," + Time(second) + ",A") +
         Sentence("GPZDA," + Time(second) + ",23,03,2024,00,00") + Rmc(second);
}

/// The engine on a drive that never ends.
class Bench {
 public:
  Bench() {
    Install();
    engine.SetUseGPSAPI(0);
    engine.SetComPortName(TEXT("COM1"));
    engine.SetRenderWindow(host.Get());
    engine.StartCallBack(host.Get());
  }

  int CountViews() const { return engine.GetWidgetsCount(); }
  std::string ViewName(int view) const { return engine.WidgetName(view); }
  void Show(int view) { engine.SetCurRenderWidget(view); }

  /// Counts what `REPEATS` seconds take, after some that fill caches and buffers.
  void Count(const std::string& what, std::string (*makeSecond)(int), unsigned before = 5) {
    Go(before, makeSecond);
    Tell(counter::BEGIN, 0, 0);
    Go(REPEATS, makeSecond);
    Tell(counter::END, ++windows, REPEATS);
    std::printf("window %u: %s\n", windows, what.c_str());
  }

 private:
  /// The pictures and sounds, beside the engine.
  void Install() const {
    namespace fs = std::filesystem;
    const fs::path assets = ASSETS;
    for (const char* folder : {"Pics", "Wav"}) {
      for (const auto& entry : fs::directory_iterator(assets / folder)) {
        if (!entry.is_regular_file()) {
          continue;
        }
        std::ifstream file(entry.path(), std::ios::binary);
        device->WriteFile(fs::relative(entry.path(), assets).string(),
                          std::string(std::istreambuf_iterator<char>(file), {}));
      }
    }
  }

  static void Tell(counter::Request request, unsigned first, unsigned second) {
    syscall(SYS_sched_yield, counter::MARK, request, first, second);
  }

  void Go(unsigned seconds, std::string (*makeSecond)(int)) {
    for (unsigned index = 0; index < seconds; ++index) {
      const std::uint64_t before = handheld::WindowPixelsVersion(host.Get());
      receiver->Send(makeSecond(second++));
      host.WaitFor(engine.GetWndMessageID(), 1, 60'000);
      WaitForRest(before);
    }
  }

  /// The frame is drawn after the notification, under a lock that each read-out takes, and the
  /// reader goes back to its port.
  void WaitForRest(std::uint64_t before) const {
    while (engine.GetCurRenderWidget() >= 0 &&
           handheld::WindowPixelsVersion(host.Get()) == before) {
      std::this_thread::sleep_for(1ms);
    }
    engine.SensorValue(FEROLIN_SENSOR_SPEED);
    std::this_thread::sleep_for(20ms);
  }

  std::unique_ptr<Device> device = Device::Make();
  std::unique_ptr<Receiver> receiver = device->Connect("COM1");
  HostWindow host{800, 480};
  EngineLibrary engine;
  int second = 0;
  unsigned windows = 0;
};

}  // namespace

int main() {
  Bench bench;
  bench.Count("one RMC update", Rmc);
  bench.Count("the same in a town with stops", TownRmc);
  bench.Count("the same on foot, two minutes after a stop", WalkRmc, 120);
  bench.Count("one epoch of eight sentences", Epoch);
  for (int view = 0; view < bench.CountViews(); ++view) {
    bench.Show(view);
    bench.Count("one RMC update and a frame of " + bench.ViewName(view), Rmc);
  }
}
