// How fast sentences go through the parser alone and through the whole update cycle (sensors, SMS,
// events; no window), for an hour and for a month, and how long the track file takes.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "ProgramFolder.h"
#include "base/CodePage.h"
#include "base/Format.h"
#include "engine/Engine.h"
#include "gps/FixRecord.h"
#include "track/TrackKmlWriter.h"

namespace ferolin {

namespace {

/// An epoch of eight sentences, as receivers with twelve satellites in view send every second.
std::vector<std::string> Epoch(int second) {
  char rmc[128];
  char gga[128];
  const int day = 1 + second / 86400;
  const int minuteThousandths = second % 60000;
  std::snprintf(rmc, sizeof rmc,
                "$GPRMC,%02d%02d%02d,A,48%02d.%03d,N,01131.%03d,E,%d.%d,084.4,%02d0324,003.1,W*6A",
                second / 3600 % 24, second / 60 % 60, second % 60, minuteThousandths / 1000,
                minuteThousandths % 1000, second % 1000, 20 + second % 50, second % 10, day);
  std::snprintf(gga, sizeof gga,
                "$GPGGA,%02d%02d%02d,48%02d.%03d,N,01131.%03d,E,1,08,0.9,%d.4,M,46.9,M,,*47",
                second / 3600 % 24, second / 60 % 60, second % 60, minuteThousandths / 1000,
                minuteThousandths % 1000, second % 1000, 500 + second % 100);
  return {gga,
          "$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39",
          "$GPGSV,3,1,12,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*75",
          "$GPGSV,3,2,12,03,40,083,46,04,17,308,41,15,07,344,39,16,22,228,45*75",
          "$GPGSV,3,3,12,05,40,083,46,06,17,308,41,17,07,344,39,18,22,228,45*75",
          "$GPGLL,4807.038,N,01131.000,E,123519,A*25",
          "$GPZDA,123519,23,03,2024,00,00*42",
          rmc};
}

std::vector<std::string> Drive() {
  std::vector<std::string> sentences;
  for (int second = 0; second < 3600; ++second) {
    for (std::string& sentence : Epoch(second)) {
      sentences.push_back(std::move(sentence));
    }
  }
  return sentences;
}

void ParserAlone(benchmark::State& state) {
  const std::vector<std::string> sentences = Drive();
  for (auto _ : state) {
    FixRecord fix;
    for (const std::string& sentence : sentences) {
      benchmark::DoNotOptimize(fix.ParseSentence(sentence.c_str()));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(sentences.size()));
}
BENCHMARK(ParserAlone)->Unit(benchmark::kMillisecond);

/// An engine that has loaded its pictures, as it does at the first update.
std::unique_ptr<Engine> MakeEngine(const ProgramFolder& program) {
  auto engine = std::make_unique<Engine>();
  engine->AttachModule(program.GetModule());
  engine->OnUpdate("$GPRMC,000000,A,4800.000,N,01131.000,E,0.0,084.4,010324,003.1,W*6A");
  return engine;
}

void WholeUpdateCycle(benchmark::State& state) {
  const std::vector<std::string> sentences = Drive();
  const ProgramFolder program;
  for (auto _ : state) {
    state.PauseTiming();
    std::unique_ptr<Engine> engine = MakeEngine(program);
    state.ResumeTiming();
    for (const std::string& sentence : sentences) {
      engine->OnUpdate(sentence.c_str());
    }
    state.PauseTiming();
    engine.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(sentences.size()));
}
BENCHMARK(WholeUpdateCycle)->Unit(benchmark::kMillisecond);

/// Drives for a day at one position a second; returns the nanoseconds of CPU time an update took.
double DriveADay(Engine& engine, int day) {
  constexpr int SECONDS = 86400;
  std::vector<std::string> sentences;
  for (int second = 0; second < SECONDS; ++second) {
    sentences.push_back(Epoch(day * SECONDS + second).back());
  }
  const std::clock_t start = std::clock();
  for (const std::string& sentence : sentences) {
    engine.OnUpdate(sentence.c_str());
  }
  return static_cast<double>(std::clock() - start) * (1e9 / CLOCKS_PER_SEC / SECONDS);
}

/// Kilobytes in use beside the points of the track.
double MemoryBesideTrack(const Engine& engine) {
  const struct mallinfo2 memory = mallinfo2();
  const auto points = static_cast<std::size_t>(engine.GetFix().GetPointCount());
  return static_cast<double>(memory.uordblks + memory.hblkhd - points * sizeof(TrackPoint)) / 1024;
}

/// 31 days without a pause: an update must cost at the end what it cost at the start.
void Month(benchmark::State& state) {
  constexpr int DAYS = 31;
  const ProgramFolder program;
  for (auto _ : state) {
    const std::unique_ptr<Engine> engine = MakeEngine(program);
    state.counters["first day, ns"] = DriveADay(*engine, 0);
    state.counters["KB after it"] = MemoryBesideTrack(*engine);
    for (int day = 1; day < DAYS - 1; ++day) {
      DriveADay(*engine, day);
    }
    state.counters["last day, ns"] = DriveADay(*engine, DAYS - 1);
    state.counters["KB at the end"] = MemoryBesideTrack(*engine);
  }
}
BENCHMARK(Month)->Unit(benchmark::kSecond)->Iterations(1);

/// Writes a million points, none of which repeats the one before.
void TrackFile(benchmark::State& state) {
  constexpr int POINTS = 1'000'000;
  const ProgramFolder program;
  TrackStore track;
  for (int point = 0; point < POINTS; ++point) {
    const auto step = static_cast<float>(point % 6000);
    track.Append({100 + step * 0.125F,
                  1100 + step * 0.0078125F,
                  4800 + step * 0.0078125F,
                  0,
                  static_cast<float>(point % 100),
                  {}});
  }
  int file = 0;
  for (auto _ : state) {
    WriteTrackKml(track, program.GetDevicePath() + TEXT("\\Tracks") + Widen(Format("%i", file++)));
  }
  state.SetItemsProcessed(state.iterations() * POINTS);
}
BENCHMARK(TrackFile)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

}  // namespace ferolin
