// CPU time that a recording takes in process: nanoseconds a sentence for the parser, for cutting
// and parsing, and seconds for the engine with all sensors. The best of several passes.
//
// usage: recording-bench RECORDING

#include <sys/resource.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "ProgramFolder.h"
#include "engine/Engine.h"
#include "gps/FixRecord.h"
#include "gps/SentenceSplitter.h"

namespace ferolin {

namespace {

constexpr int PASSES = 7;

double CpuSeconds() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_utime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec) * 1e-6;
}

/// Seconds of the fastest of several passes, each of which prepares something and then uses it.
template <class Prepare, class Use>
double Best(Prepare prepare, Use use) {
  double best = 1e9;
  for (int pass = 0; pass < PASSES; ++pass) {
    const auto prepared = prepare();
    const double start = CpuSeconds();
    use(*prepared);
    best = std::min(best, CpuSeconds() - start);
  }
  return best;
}

/// The sentences with their line ends.
std::vector<std::string> ReadLines(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('$') && line.ends_with('\r')) {
      lines.push_back(line + '\n');
    }
  }
  return lines;
}

double ParserAlone(const std::vector<std::string>& sentences, std::size_t repeats) {
  return Best([] { return std::make_unique<FixRecord>(); },
              [&](FixRecord& fix) {
                for (std::size_t repeat = 0; repeat < repeats; ++repeat) {
                  for (const std::string& sentence : sentences) {
                    fix.ParseSentence(sentence.c_str());
                  }
                }
              });
}

/// As the reader does it when each sentence comes by itself.
double SplitterAndParser(const std::vector<std::string>& lines, std::size_t repeats) {
  return Best([] { return std::make_unique<FixRecord>(); },
              [&](FixRecord& fix) {
                SentenceSplitter splitter;
                for (std::size_t repeat = 0; repeat < repeats; ++repeat) {
                  for (const std::string& line : lines) {
                    std::memcpy(splitter.GetReadPosition(), line.data(), line.size());
                    splitter.Scan(line.size(),
                                  [&](const char* sentence) { fix.ParseSentence(sentence); });
                  }
                }
              });
}

/// The pictures are loaded by the first update, before.
double WholeEngine(const std::vector<std::string>& sentences) {
  const ProgramFolder program;
  return Best(
      [&] {
        auto engine = std::make_unique<Engine>();
        engine->AttachModule(program.GetModule());
        engine->OnUpdate("$GPRMC,120000,A,4807.038,N,01131.000,E,0.0,084.4,010124,,*00");
        return engine;
      },
      [&](Engine& engine) {
        for (const std::string& sentence : sentences) {
          engine.OnUpdate(sentence.c_str());
        }
      });
}

}  // namespace

}  // namespace ferolin

int main(int count, char** arguments) {
  using namespace ferolin;
  if (count != 2) {
    std::fprintf(stderr, "usage: %s RECORDING\n", arguments[0]);
    return 2;
  }
  const std::vector<std::string> lines = ReadLines(arguments[1]);
  if (lines.empty()) {
    std::fprintf(stderr, "%s: no sentences\n", arguments[1]);
    return 1;
  }
  std::vector<std::string> sentences;
  for (const std::string& line : lines) {
    sentences.push_back(line.substr(0, line.find('\r')));
  }
  const std::size_t repeats = 1 + 200'000 / lines.size();
  const double nanoseconds = 1e9 / static_cast<double>(lines.size() * repeats);
  std::printf("%.1f %.1f %.4f\n", ParserAlone(sentences, repeats) * nanoseconds,
              SplitterAndParser(lines, repeats) * nanoseconds, WholeEngine(sentences));
}
