// A text file that is written.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace host {

/// All methods throw HostError with the reason when the file cannot be written.
class TextFile {
 public:
  /// "-" is standard output.
  explicit TextFile(const std::string& path);

  void Write(std::string_view text);

  /// Makes sure that everything is in the file. Nothing may be written any more.
  void Finish();

 private:
  struct Close {
    void operator()(std::FILE* toClose) const {
      if (toClose != stdout) {
        std::fclose(toClose);
      }
    }
  };

  [[noreturn]] void Fail() const;

  std::string path;
  std::unique_ptr<std::FILE, Close> file;
};

}  // namespace host
