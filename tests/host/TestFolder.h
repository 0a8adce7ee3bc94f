// A folder for one test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace host {

/// Empty at first, removed with everything in it at the end.
class TestFolder {
 public:
  TestFolder() {
    std::string name = testing::TempDir() + "ferolin-XXXXXX";
    path = mkdtemp(name.data());
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() { std::filesystem::remove_all(path); }

  const std::string& GetPath() const { return path; }

 private:
  std::string path;
};

}  // namespace host
