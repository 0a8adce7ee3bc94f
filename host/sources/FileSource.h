// A recorded file, or what comes in on standard input.
#pragma once

#include <string>

#include "base/FileDescriptor.h"
#include "sources/NmeaSource.h"

namespace host {

class FileSource : public NmeaSource {
 public:
  /// "-" is standard input. Throws HostError when the file cannot be read.
  explicit FileSource(const std::string& path);

  std::optional<std::string> Read() override;
  void Stop() override;
  std::optional<std::uint64_t> GetSize() const override { return size; }
  bool IsLive() const override { return false; }

 private:
  /// Waits for bytes or the end of the file. False when the source was stopped.
  bool Wait();

  FileDescriptor file;
  FileDescriptor stopEvent;
  std::optional<std::uint64_t> size;
};

}  // namespace host
