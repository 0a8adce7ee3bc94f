// Device paths on a Linux file system.
#pragma once

#include <windows.h>

#include <string>

namespace handheld {

/// Where a device path leads.
struct Location {
  /// Linux path; components that exist are spelled as on disk, the others as given.
  std::string path;
  bool exists = false;
  /// Whether the folder that would hold the last component exists.
  bool folderExists = false;

  /// The error that a call on a missing file reports.
  DWORD GetMissingError() const {
    return folderExists ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
  }
};

/// Looks every component up without regard to case, the exact spelling first.
Location Locate(const std::string& linuxPath);
Location Locate(LPCWSTR devicePath);

/// Linux path without its last component ("" when it has one only, "/" for the root), and that
/// component.
std::string FolderOf(const std::string& path);
std::string FileNameOf(const std::string& path);
std::string Join(const std::string& folder, const std::string& name);

/// File name in `folder` (an empty one is the current folder) that equals `name` but for case;
/// empty if none.
std::string FindEntry(const std::string& folder, const std::string& name);

}  // namespace handheld
