#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <utility>

#include "core/Descriptor.h"
#include "core/Handles.h"
#include "core/LastError.h"
#include "files/FileShares.h"
#include "files/Paths.h"
#include "handheld.h"
#include "serial/SerialPorts.h"
#include "text/WideText.h"
#include "time/Calendar.h"

namespace handheld {

namespace {

/// An open file. It keeps its claim on the file until the handle is closed.
class File : public Stream {
 public:
  File(Descriptor opened, FileShares::FileId fileId, DWORD wantedAccess, DWORD wantedShareMode)
      : descriptor(std::move(opened)),
        id(std::move(fileId)),
        access(wantedAccess),
        shareMode(wantedShareMode) {}

  void HandleClosed() override { FileShares::Instance().Release(id, access, shareMode); }

  DWORD Read(void* buffer, DWORD size, DWORD& count) override {
    if ((access & GENERIC_READ) == 0) {
      return ERROR_ACCESS_DENIED;
    }
    ssize_t received;
    do {
      received = read(descriptor.GetNumber(), buffer, size);
    } while (received < 0 && errno == EINTR);
    if (received < 0) {
      return ErrorFromErrno(errno);
    }
    count = static_cast<DWORD>(received);
    return ERROR_SUCCESS;
  }

  DWORD Write(const void* data, DWORD size, DWORD& count) override {
    if ((access & GENERIC_WRITE) == 0) {
      return ERROR_ACCESS_DENIED;
    }
    while (count < size) {
      const ssize_t sent =
          write(descriptor.GetNumber(), static_cast<const char*>(data) + count, size - count);
      if (sent < 0 && errno == EINTR) {
        continue;
      }
      if (sent < 0) {
        return ErrorFromErrno(errno);
      }
      count += static_cast<DWORD>(sent);
    }
    return ERROR_SUCCESS;
  }

  DWORD Flush() override {
    if ((access & GENERIC_WRITE) == 0) {
      return ERROR_ACCESS_DENIED;
    }
    // Pipes and the like cannot be synced and need not be.
    return fsync(descriptor.GetNumber()) == 0 || errno == EINVAL ? ERROR_SUCCESS
                                                                 : ErrorFromErrno(errno);
  }

 private:
  const Descriptor descriptor;
  const FileShares::FileId id;
  const DWORD access;
  const DWORD shareMode;
};

/// A search that found its one file; there is no call to go on with it.
class Search : public Object {};

int OpenFlags(DWORD access, DWORD disposition) {
  const bool reads = (access & GENERIC_READ) != 0;
  const bool writes = (access & GENERIC_WRITE) != 0;
  const int mode = reads && writes ? O_RDWR : writes ? O_WRONLY : O_RDONLY;
  return mode | O_CLOEXEC | O_NOCTTY | (disposition == CREATE_ALWAYS ? O_CREAT : 0);
}

HANDLE OpenFile(const std::string& path, DWORD access, DWORD shareMode, DWORD disposition) {
  Descriptor descriptor(open(path.c_str(), OpenFlags(access, disposition), 0666));
  struct stat status;
  if (!descriptor.IsOpen() || fstat(descriptor.GetNumber(), &status) != 0) {
    return Fail(ErrorFromErrno(errno), INVALID_HANDLE_VALUE);
  }
  if (S_ISDIR(status.st_mode)) {
    return Fail(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
  }

  const FileShares::FileId id = FileShares::IdOf(status);
  if (!FileShares::Instance().Claim(id, access, shareMode)) {
    return Fail(ERROR_SHARING_VIOLATION, INVALID_HANDLE_VALUE);
  }
  auto file = std::make_shared<File>(std::move(descriptor), id, access, shareMode);
  // Emptied only now: a file that somebody else holds open keeps its content.
  if (disposition == CREATE_ALWAYS && truncate(path.c_str(), 0) != 0) {
    file->HandleClosed();
    return Fail(ErrorFromErrno(errno), INVALID_HANDLE_VALUE);
  }
  return HandleTable::Instance().Add(std::move(file));
}

HANDLE CreateFileByName(LPCWSTR fileName, DWORD access, DWORD shareMode, DWORD disposition) {
  if (SerialPorts::IsPortName(WideText(fileName))) {
    return SerialPorts::Instance().Open(WideText(fileName));
  }
  if (disposition != OPEN_EXISTING && disposition != CREATE_ALWAYS) {
    return Fail(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
  }

  const Location location = Locate(fileName);
  if (!location.exists && (disposition == OPEN_EXISTING || !location.folderExists)) {
    return Fail(location.GetMissingError(), INVALID_HANDLE_VALUE);
  }
  const HANDLE handle = OpenFile(location.path, access, shareMode, disposition);
  if (handle != INVALID_HANDLE_VALUE) {
    SetError(disposition == CREATE_ALWAYS && location.exists ? ERROR_ALREADY_EXISTS
                                                             : ERROR_SUCCESS);
  }
  return handle;
}

bool IsOpenHere(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 &&
         FileShares::Instance().IsOpen(FileShares::IdOf(status));
}

bool IsSameFile(const std::string& left, const std::string& right) {
  struct stat first;
  struct stat second;
  return stat(left.c_str(), &first) == 0 && stat(right.c_str(), &second) == 0 &&
         FileShares::IdOf(first) == FileShares::IdOf(second);
}

/// Renames without ever replacing. File systems that cannot promise that get the ordinary rename,
/// the caller having looked before.
bool RenameToNew(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  return errno == EINVAL && rename(from.c_str(), to.c_str()) == 0;
}

BOOL Move(LPCWSTR existingName, LPCWSTR newName) {
  const Location from = Locate(existingName);
  if (!from.exists) {
    return Fail(from.GetMissingError(), FALSE);
  }
  const Location to = Locate(newName);
  if (!to.folderExists) {
    return Fail(ERROR_PATH_NOT_FOUND, FALSE);
  }
  if (IsOpenHere(from.path)) {
    return Fail(ERROR_SHARING_VIOLATION, FALSE);
  }

  // A new spelling of the same name finds the file itself.
  const std::string target = Join(FolderOf(to.path), FileNameOf(LinuxPath(WideText(newName))));
  if (to.exists && !IsSameFile(from.path, to.path)) {
    return Fail(ERROR_ALREADY_EXISTS, FALSE);
  }
  if (target == from.path) {
    return TRUE;
  }
  return RenameToNew(from.path, target) ? TRUE : Fail(ErrorFromErrno(errno), FALSE);
}

BOOL Delete(LPCWSTR fileName) {
  const Location location = Locate(fileName);
  if (!location.exists) {
    return Fail(location.GetMissingError(), FALSE);
  }
  if (IsOpenHere(location.path)) {
    return Fail(ERROR_SHARING_VIOLATION, FALSE);
  }
  return unlink(location.path.c_str()) == 0 ? TRUE : Fail(ErrorFromErrno(errno), FALSE);
}

BOOL MakeFolder(LPCWSTR path) {
  const Location location = Locate(path);
  if (location.exists) {
    return Fail(ERROR_ALREADY_EXISTS, FALSE);
  }
  if (!location.folderExists) {
    return Fail(ERROR_PATH_NOT_FOUND, FALSE);
  }
  return mkdir(location.path.c_str(), 0777) == 0 ? TRUE : Fail(ErrorFromErrno(errno), FALSE);
}

bool HasWildcards(const std::string& name) {
  return name.find_first_of("*?") != std::string::npos;
}

/// First entry of the folder that matches; "*.*" means all, dots or not. Empty when none does.
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
    // The device lists neither the folder itself nor the one above.
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
  // Linux file systems tell the time of creation in their own ways only; the change of the entry
  // comes closest.
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

/// What reading, writing and flushing share: find the stream, run, report.
template <typename Operation>
BOOL OnStream(HANDLE file, LPDWORD moved, Operation operation) {
  DWORD count = 0;
  if (moved != nullptr) {
    *moved = 0;
  }
  const auto stream = HandleTable::Instance().Find<Stream>(file);
  if (stream == nullptr) {
    return Fail(ERROR_INVALID_HANDLE, FALSE);
  }
  const DWORD error = operation(*stream, count);
  if (moved != nullptr) {
    *moved = count;
  }
  return error == ERROR_SUCCESS ? TRUE : Fail(error, FALSE);
}

}  // namespace

extern "C" {

HANDLE WINAPI CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode, SECURITY_ATTRIBUTES*,
                          DWORD disposition, DWORD, HANDLE) {
  return Guarded(INVALID_HANDLE_VALUE, [&] {
    if (WideLength(fileName) == 0) {
      return Fail(ERROR_PATH_NOT_FOUND, INVALID_HANDLE_VALUE);
    }
    return CreateFileByName(fileName, access, shareMode, disposition);
  });
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                     OVERLAPPED* overlapped) {
  return Guarded<BOOL>(FALSE, [&] {
    if (overlapped != nullptr || (buffer == nullptr && toRead != 0)) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    return OnStream(file, read, [&](Stream& stream, DWORD& count) {
      return stream.Read(buffer, toRead, count);
    });
  });
}

BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD toWrite, LPDWORD written,
                      OVERLAPPED* overlapped) {
  return Guarded<BOOL>(FALSE, [&] {
    if (overlapped != nullptr || (buffer == nullptr && toWrite != 0)) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    return OnStream(file, written, [&](Stream& stream, DWORD& count) {
      return stream.Write(buffer, toWrite, count);
    });
  });
}

BOOL WINAPI FlushFileBuffers(HANDLE file) {
  return Guarded<BOOL>(FALSE, [&] {
    return OnStream(file, nullptr, [](Stream& stream, DWORD&) { return stream.Flush(); });
  });
}

BOOL WINAPI DeleteFileW(LPCWSTR fileName) {
  return Guarded<BOOL>(FALSE, [&] { return Delete(fileName); });
}

BOOL WINAPI MoveFileW(LPCWSTR existingName, LPCWSTR newName) {
  return Guarded<BOOL>(FALSE, [&] { return Move(existingName, newName); });
}

BOOL WINAPI CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES*) {
  return Guarded<BOOL>(FALSE, [&] { return MakeFolder(path); });
}

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
