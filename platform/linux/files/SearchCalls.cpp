// Searches for files by name or wildcards.
#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <cstdint>
#include <memory>

#include "core/Handles.h"
#include "core/LastError.h"
#include "files/Paths.h"
#include "handheld.h"
#include "text/WideText.h"
#include "time/Calendar.h"

namespace handheld {

namespace {

/// Handle of a finished search: it finds one file, and no call continues it.
class Search : public Object {};

bool HasWildcards(const std::string& name) {
  return name.find_first_of("*?") != std::string::npos;
}

/// First matching entry of the folder; "*.*" matches every name, with or without a dot. Empty
/// without a match.
std::string FirstMatch(const std::string& folder, const std::string& wildcards) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()),
                                                    closedir);
  if (entries == nullptr) {
    return "";
  }
  const std::string pattern =
      Utf8FromWide(FoldCase(WideFromUtf8(wildcards == "*.*" ? "*" : wildcards)));
  while (const dirent* entry = readdir(entries.get())) {
    std::string name = entry->d_name;
    // The device lists neither the folder itself nor its parent.
    if (name == "." || name == "..") {
      continue;
    }
    const std::string folded = Utf8FromWide(FoldCase(WideFromUtf8(name)));
    if (fnmatch(pattern.c_str(), folded.c_str(), FNM_NOESCAPE) == 0) {
      return name;
    }
  }
  return "";
}

Location LocatePattern(const std::string& pattern) {
  const std::string name = FileNameOf(pattern);
  if (!HasWildcards(name)) {
    return Locate(pattern);
  }
  const std::string folderName = FolderOf(pattern);
  const Location folder = folderName.empty() ? Location{"", true, true} : Locate(folderName);
  if (!folder.exists) {
    return {pattern, false, false};
  }
  const std::string match = FirstMatch(folder.path, name);
  return {Join(folder.path, match), !match.empty(), true};
}

FILETIME FileTimeOf(const timespec& time) {
  return Calendar::Split(Calendar::UNIX_EPOCH + time.tv_sec * Calendar::UNITS_PER_SECOND +
                         time.tv_nsec / 100);
}

void Describe(const std::string& path, WIN32_FIND_DATAW& found) {
  struct stat status = {};
  stat(path.c_str(), &status);
  found = {};
  const bool isFolder = S_ISDIR(status.st_mode);
  found.dwFileAttributes = isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
  // stat() has no time of creation; the change of the entry comes closest.
  found.ftCreationTime = FileTimeOf(status.st_ctim);
  found.ftLastAccessTime = FileTimeOf(status.st_atim);
  found.ftLastWriteTime = FileTimeOf(status.st_mtim);
  const std::uint64_t size = isFolder ? 0 : static_cast<std::uint64_t>(status.st_size);
  found.nFileSizeHigh = static_cast<DWORD>(size >> 32);
  found.nFileSizeLow = static_cast<DWORD>(size);
  WideFromUtf8(FileNameOf(path)).copy(found.cFileName, MAX_PATH - 1);
}

HANDLE FindFirst(LPCWSTR pattern, WIN32_FIND_DATAW* found) {
  const std::string path = LinuxPath(WideText(pattern));
  if (found == nullptr || path.empty()) {
    return Fail(ERROR_PATH_NOT_FOUND, INVALID_HANDLE_VALUE);
  }
  if (path.back() == '/') {
    return Fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
  }
  const Location location = LocatePattern(path);
  if (!location.exists) {
    return Fail(location.GetMissingError(), INVALID_HANDLE_VALUE);
  }
  Describe(location.path, *found);
  return HandleTable::Instance().Add(std::make_shared<Search>());
}

}  // namespace

extern "C" {

HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, WIN32_FIND_DATAW* found) {
  return Guarded(INVALID_HANDLE_VALUE, [&] { return FindFirst(pattern, found); });
}

BOOL WINAPI FindClose(HANDLE search) {
  return Guarded<BOOL>(FALSE, [&] {
    return HandleTable::Instance().Close<Search>(search) ? TRUE : Fail(ERROR_INVALID_HANDLE, FALSE);
  });
}

}  // extern "C"

}  // namespace handheld
