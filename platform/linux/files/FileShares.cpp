#include "files/FileShares.h"

namespace handheld {

namespace {

constexpr DWORD FILE_SHARE_WRITE = 2;

}  // namespace

FileShares& FileShares::Instance() {
  static FileShares& shares = *new FileShares;
  return shares;
}

bool FileShares::Allows(DWORD shareMode, DWORD access) {
  if ((access & GENERIC_READ) != 0 && (shareMode & FILE_SHARE_READ) == 0) {
    return false;
  }
  return (access & GENERIC_WRITE) == 0 || (shareMode & FILE_SHARE_WRITE) != 0;
}

bool FileShares::Claim(FileId file, DWORD access, DWORD shareMode) {
  const std::lock_guard lock(mutex);
  const auto [first, last] = openings.equal_range(file);
  for (auto opening = first; opening != last; ++opening) {
    if (!Allows(opening->second.shareMode, access) || !Allows(shareMode, opening->second.access)) {
      return false;
    }
  }
  openings.emplace(file, Opening{access, shareMode});
  return true;
}

void FileShares::Release(FileId file, DWORD access, DWORD shareMode) {
  const std::lock_guard lock(mutex);
  const auto [first, last] = openings.equal_range(file);
  for (auto opening = first; opening != last; ++opening) {
    if (opening->second.access != access || opening->second.shareMode != shareMode) {
      continue;
    }
    openings.erase(opening);
    return;
  }
}

bool FileShares::IsOpen(FileId file) const {
  const std::lock_guard lock(mutex);
  return openings.find(file) != openings.end();
}

}  // namespace handheld
