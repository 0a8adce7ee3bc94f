#pragma once

#include <handheld.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ferolin {

/// A folder of its own with all pictures, in which an engine thinks it lies.
class ProgramFolder {
 public:
  ProgramFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "ferolin-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      std::abort();
    }
    path = pattern;
    for (const char* asset : {"Pics", "lcd-u.ttf"}) {
      std::filesystem::create_symlink(std::filesystem::path(ASSETS) / asset, path / asset);
    }
    handheld::SetModuleDirectory(path.string());
    module = LoadLibraryW(TEXT("Ferolin.dll"));
  }

  ~ProgramFolder() {
    FreeLibrary(module);
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }

  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;

  /// What an engine is attached to.
  HMODULE GetModule() const { return module; }

  /// The folder as the engine names it.
  std::u16string GetDevicePath() const { return handheld::DevicePath(path.string()); }

 private:
  std::filesystem::path path;
  HMODULE module = nullptr;
};

}  // namespace ferolin
