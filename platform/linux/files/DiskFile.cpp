#include "files/DiskFile.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/LastError.h"

namespace handheld {

DiskFile::DiskFile(Descriptor opened, FileShares::FileId fileId, DWORD wantedAccess,
                   DWORD wantedShareMode)
    : descriptor(std::move(opened)),
      id(std::move(fileId)),
      access(wantedAccess),
      shareMode(wantedShareMode) {}

void DiskFile::HandleClosed() {
  FileShares::Instance().Release(id, access, shareMode);
}

DWORD DiskFile::Read(void* buffer, DWORD size, DWORD& count) {
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

DWORD DiskFile::Write(const void* data, DWORD size, DWORD& count) {
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

DWORD DiskFile::Flush() {
  if ((access & GENERIC_WRITE) == 0) {
    return ERROR_ACCESS_DENIED;
  }
  // EINVAL: pipes and the like cannot be synced and need not be.
  return fsync(descriptor.GetNumber()) == 0 || errno == EINVAL ? ERROR_SUCCESS
                                                               : ErrorFromErrno(errno);
}

}  // namespace handheld
