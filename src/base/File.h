#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/WideString.h"

namespace ferolin {

/// A file of the device, closed at the end of the scope. Other programs may read it meanwhile.
class File {
 public:
  /// An existing file, to be read.
  static File ForReading(const WideString& path);
  /// A new file, or an existing one that is emptied first, to be written.
  static File ForWriting(const WideString& path);

  ~File();
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool IsOpen() const { return handle != INVALID_HANDLE_VALUE; }

  /// Appends what is left of the file to `text`. False when reading failed; what was read until
  /// then has been appended.
  bool ReadAll(std::string& text) const;

  /// False when not all of it could be written.
  bool Write(std::string_view text) const;

  /// Makes the device store what was written. False when it could not.
  bool Flush() const;

 private:
  File(const WideString& path, DWORD access, DWORD disposition);

  HANDLE handle;
};

}  // namespace ferolin
