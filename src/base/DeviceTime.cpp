#include "base/DeviceTime.h"

namespace ferolin {

SYSTEMTIME LocalFromUtc(const SYSTEMTIME& utc) {
  SYSTEMTIME local = utc;
  FILETIME utcFile;
  FILETIME localFile;
  if (SystemTimeToFileTime(&utc, &utcFile) && FileTimeToLocalFileTime(&utcFile, &localFile)) {
    FileTimeToSystemTime(&localFile, &local);
  }
  return local;
}

SYSTEMTIME UtcFromLocal(const SYSTEMTIME& local) {
  SYSTEMTIME utc = local;
  FILETIME localFile;
  FILETIME utcFile;
  if (SystemTimeToFileTime(&local, &localFile) && LocalFileTimeToFileTime(&localFile, &utcFile)) {
    FileTimeToSystemTime(&utcFile, &utc);
  }
  return utc;
}

SYSTEMTIME DeviceTime() {
  SYSTEMTIME local = {};
  GetLocalTime(&local);
  return local;
}

std::int64_t FileTimeOf(const SYSTEMTIME& time) {
  FILETIME file;
  if (!SystemTimeToFileTime(&time, &file)) {
    return 0;
  }
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(file.dwHighDateTime) << 32 |
                                   file.dwLowDateTime);
}

}  // namespace ferolin
