// Device paths on a Linux file system.
#pragma once

#include <windows.h>

#include <string>

namespace handheld {

/// What a device path refers to.
struct Location {
  /// Linux path; existing components are spelled as on disk, the others as given.
  std::string path;
  bool exists = false;
  /// Whether the folder that would hold the last component exists.
  bool folderExists = false;

  /// The error that a call on a missing file reports.
  DWORD GetMissingError() const {
    return folderExists ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
  }
};

/// Looks up every component without regard to case and prefers the exact spelling.
Location Locate(const std::string& linuxPath);
Location Locate(LPCWSTR devicePath);

/// Linux path without its last component ("" for a single component, "/" for the root), and the
/// last component alone.
std::string FolderOf(const std::string& path);
std::string FileNameOf(const std::string& path);
std::string Join(const std::string& folder, const std::string& name);

/// Name of an entry of `folder` ("" is the current folder) that equals `name` apart from case;
/// empty without one.
std::string FindEntry(const std::string& folder, const std::string& name);

}  // namespace handheld
