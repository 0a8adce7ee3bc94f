// Folder of its own for one test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "handheld.h"

/// Exists as long as the object does. File names are given relative to the folder.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "handheld-XXXXXX").string();
    path = mkdtemp(pattern.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& Path() const { return path; }
  std::string Path(const std::string& name) const { return path + "/" + name; }
  /// The same in the device's spelling.
  std::u16string DevicePath(const std::string& name) const {
    return handheld::DevicePath(Path(name));
  }

  void Write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Read(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  bool Has(const std::string& name) const { return std::filesystem::exists(Path(name)); }

 private:
  std::string path;
};
