#include "base/File.h"

namespace ferolin {

File::File(const WideString& path, DWORD access, DWORD disposition)
    : handle(CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                         FILE_ATTRIBUTE_NORMAL, nullptr)) {}

File File::ForReading(const WideString& path) {
  return {path, GENERIC_READ, OPEN_EXISTING};
}

File File::ForWriting(const WideString& path) {
  return {path, GENERIC_WRITE, CREATE_ALWAYS};
}

File::~File() {
  if (IsOpen()) {
    CloseHandle(handle);
  }
}

bool File::ReadAll(std::string& text) const {
  char block[1024];
  DWORD count = 0;
  while (ReadFile(handle, block, sizeof block, &count, nullptr)) {
    if (count == 0) {
      return true;
    }
    text.append(block, count);
  }
  return false;
}

bool File::Write(std::string_view text) const {
  DWORD written = 0;
  return WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
         written == text.size();
}

bool File::Flush() const {
  return FlushFileBuffers(handle) != 0;
}

}  // namespace ferolin
