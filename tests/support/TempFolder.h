// A folder of a test's own.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "handheld.h"

namespace testing_support {

/// An empty folder that is gone, with all that it holds, at the end of its scope.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "ferolin-XXXXXX";
    path = mkdtemp(pattern.data());
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path; }
  std::string Path(std::string_view name) const { return path + '/' + std::string(name); }

  /// The path in the device's spelling.
  std::u16string DevicePath() const { return handheld::DevicePath(path); }
  std::u16string DevicePath(std::string_view name) const {
    return handheld::DevicePath(Path(name));
  }

  bool Has(std::string_view name) const { return std::filesystem::exists(Path(name)); }

  /// All bytes of a file; empty when it is missing.
  std::string Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  void Write(std::string_view name, std::string_view content) const {
    std::ofstream file(Path(name), std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
  }

  void MakeFolder(std::string_view name) const { std::filesystem::create_directories(Path(name)); }

  int CountFiles() const {
    return static_cast<int>(std::distance(std::filesystem::directory_iterator(path), {}));
  }

 private:
  std::string path;
};

}  // namespace testing_support
