// A source whose bytes are written to a file.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "sources/NmeaSource.h"
#include "sources/SentenceLog.h"

namespace host {

class LoggedSource : public NmeaSource {
 public:
  /// The log outlives the source.
  LoggedSource(std::unique_ptr<NmeaSource> source, SentenceLog& log)
      : source(std::move(source)), log(log) {}

  std::optional<std::string> Read() override {
    std::optional<std::string> bytes = source->Read();
    log.Take(bytes.value_or(""));
    return bytes;
  }
  void Stop() override { source->Stop(); }
  std::optional<std::uint64_t> GetSize() const override { return source->GetSize(); }
  std::string GetTrouble() const override { return source->GetTrouble(); }
  bool Searches() const override { return source->Searches(); }
  std::string GetName() const override { return source->GetName(); }
  bool IsLive() const override { return source->IsLive(); }

 private:
  const std::unique_ptr<NmeaSource> source;
  SentenceLog& log;
};

}  // namespace host
