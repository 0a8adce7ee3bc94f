// A temporary folder for one test.
#pragma once

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace testing_support {

/// An empty folder, deleted with its content at the end of the scope. Names are relative to it.
class TempFolder {
 public:
  TempFolder() {
    namespace fs = std::filesystem;
    std::random_device random;
    do {
      path = (fs::temp_directory_path() / ("ferolin-" + std::to_string(random()))).string();
    } while (!fs::create_directory(path));
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
  std::basic_string<WCHAR> DevicePath() const { return Wide(path); }
  std::basic_string<WCHAR> DevicePath(std::string_view name) const { return Wide(Path(name)); }

  bool Has(std::string_view name) const { return std::filesystem::exists(Path(name)); }

  /// All bytes of a file; empty when it is missing.
  std::string Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Also makes missing parent folders.
  void Write(std::string_view name, std::string_view content) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream file(Path(name), std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
  }

  void MakeFolder(std::string_view name) const { std::filesystem::create_directories(Path(name)); }

  int CountFiles() const {
    return static_cast<int>(std::distance(std::filesystem::directory_iterator(path), {}));
  }

 private:
  static std::basic_string<WCHAR> Wide(const std::string& narrow) {
    auto wide = std::filesystem::path(narrow).string<WCHAR>();
    std::replace(wide.begin(), wide.end(), WCHAR('/'), WCHAR('\\'));
    return wide;
  }

  std::string path;
};

}  // namespace testing_support
