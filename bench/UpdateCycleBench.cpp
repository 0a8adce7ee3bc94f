// How fast sentences go through the parser alone and through the whole update cycle (sensors, SMS,
// events; no window).

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ProgramFolder.h"
#include "engine/Engine.h"
#include "gps/FixRecord.h"

namespace ferolin {

namespace {

/// An epoch of eight sentences, as receivers with twelve satellites in view send every second.
std::vector<std::string> Epoch(int second) {
  char rmc[128];
  char gga[128];
  const int minuteThousandths = second % 60000;
  std::snprintf(rmc, sizeof rmc,
                "$GPRMC,%02d%02d%02d,A,48%02d.%03d,N,01131.%03d,E,%d.%d,084.4,230324,003.1,W*6A",
                second / 3600 % 24, second / 60 % 60, second % 60, minuteThousandths / 1000,
                minuteThousandths % 1000, second % 1000, 20 + second % 50, second % 10);
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

void WholeUpdateCycle(benchmark::State& state) {
  const std::vector<std::string> sentences = Drive();
  const ProgramFolder program;
  for (auto _ : state) {
    Engine engine;
    engine.AttachModule(program.GetModule());
    for (const std::string& sentence : sentences) {
      engine.OnUpdate(sentence.c_str());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(sentences.size()));
}
BENCHMARK(WholeUpdateCycle)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace ferolin
