#include "core/LastError.h"

#include <cerrno>

namespace handheld {

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

struct Translation {
  int error;
  DWORD code;
};

constexpr Translation TRANSLATIONS[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},     {ENODEV, ERROR_FILE_NOT_FOUND},
    {ENXIO, ERROR_FILE_NOT_FOUND},      {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},      {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},      {EBUSY, ERROR_ACCESS_DENIED},
    {ETXTBSY, ERROR_SHARING_VIOLATION}, {EBADF, ERROR_INVALID_HANDLE},
    {EEXIST, ERROR_ALREADY_EXISTS},     {ENOTEMPTY, ERROR_ALREADY_EXISTS},
    {EROFS, ERROR_WRITE_PROTECT},       {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},          {ENAMETOOLONG, ERROR_INVALID_NAME},
    {EXDEV, ERROR_NOT_SAME_DEVICE},     {EINVAL, ERROR_INVALID_PARAMETER},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
};

}  // namespace

void SetError(DWORD code) {
  lastError = code;
}

DWORD ErrorFromErrno(int error) {
  for (const Translation& translation : TRANSLATIONS) {
    if (translation.error == error) {
      return translation.code;
    }
  }
  return ERROR_GEN_FAILURE;
}

extern "C" DWORD WINAPI GetLastError() {
  return lastError;
}

}  // namespace handheld
