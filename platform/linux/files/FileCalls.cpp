// Calls on files and folders; reading and writing serve every stream.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <utility>

#include "core/Descriptor.h"
#include "core/Handles.h"
#include "core/LastError.h"
#include "files/DiskFile.h"
#include "files/FileShares.h"
#include "files/Paths.h"
#include "handheld.h"
#include "serial/SerialPorts.h"
#include "text/WideText.h"

namespace handheld {

namespace {

int OpenFlags(DWORD access, DWORD disposition) {
  const bool reads = (access & GENERIC_READ) != 0;
  const bool writes = (access & GENERIC_WRITE) != 0;
  const int mode = reads && writes ? O_RDWR : writes ? O_WRONLY : O_RDONLY;
  // O_NONBLOCK: opening a pipe must not wait for its other end. O_NOFOLLOW: what is written must
  // not end in another file by a link that somebody planted.
  const int creation = disposition == CREATE_ALWAYS ? O_CREAT | O_NOFOLLOW : 0;
  return mode | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | creation;
}

/// Folders have no bytes, and a pipe's never end. Devices such as /dev/null pass.
bool CanBeAFile(const struct stat& status) {
  return S_ISREG(status.st_mode) || S_ISCHR(status.st_mode);
}

/// Emptying a file that cannot be read would lose what the caller has never seen.
bool MayBeEmptied(const std::string& path) {
  return euidaccess(path.c_str(), R_OK) == 0 || errno == ENOENT;
}

HANDLE OpenFile(const std::string& path, DWORD access, DWORD shareMode, DWORD disposition) {
  if (disposition == CREATE_ALWAYS && !MayBeEmptied(path)) {
    return Fail(ErrorFromErrno(errno), INVALID_HANDLE_VALUE);
  }
  Descriptor descriptor(open(path.c_str(), OpenFlags(access, disposition), 0666));
  struct stat status;
  if (!descriptor.IsOpen() || fstat(descriptor.GetNumber(), &status) != 0) {
    return Fail(ErrorFromErrno(errno), INVALID_HANDLE_VALUE);
  }
  if (!CanBeAFile(status)) {
    return Fail(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
  }

  const FileShares::FileId id = FileShares::IdOf(status);
  if (!FileShares::Instance().Claim(id, access, shareMode)) {
    return Fail(ERROR_SHARING_VIOLATION, INVALID_HANDLE_VALUE);
  }
  auto file = std::make_shared<DiskFile>(std::move(descriptor), id, access, shareMode);
  // Emptied after the claim: a file that is held open elsewhere keeps its content.
  if (disposition == CREATE_ALWAYS && S_ISREG(status.st_mode) && truncate(path.c_str(), 0) != 0) {
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

/// Renames without replacing. File systems without RENAME_NOREPLACE get an ordinary rename; the
/// caller has checked that the target is free.
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

  // Another spelling of the same name leads to the file itself.
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

/// Finds the stream, runs the operation and reports its error and the bytes moved.
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

}  // extern "C"

}  // namespace handheld
