#include "drives/Database.h"

#include <fcntl.h>

#include <filesystem>

namespace host {

namespace {

/// Time that another program may take for its own changes.
constexpr int BUSY_TIMEOUT_MS = 5000;
constexpr mode_t OWNER_ONLY = 0600;
/// Of a new database. Every commit writes whole pages: small ones spare memory cards.
constexpr const char* PAGE_SIZE = "PRAGMA page_size = 1024";

int CopyPath(sqlite3_vfs*, const char* path, int size, char* out) {
  sqlite3_snprintf(size, out, "%s", path);
  return SQLITE_OK;
}

/// SQLite's way to files, without looking where links lead: its paths have at most 512 characters,
/// and a folder's link below /proc/self/fd is always shorter.
const char* ShortPaths() {
  static sqlite3_vfs system = *sqlite3_vfs_find(nullptr);
  static const int registered = [] {
    system.zName = "short-paths";
    system.xFullPathname = CopyPath;
    return sqlite3_vfs_register(&system, 0);
  }();
  return registered == SQLITE_OK ? system.zName : nullptr;
}

}  // namespace

Database::Database(const std::string& folderPath, const std::string& name, Missing missing)
    : path(folderPath + "/" + name),
      folder(open(folderPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
  if (missing == Missing::CREATE) {
    // A file that exists or cannot be made is SQLite's to judge.
    const FileDescriptor made(
        openat(folder.Get(), name.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, OWNER_ONLY));
  }
  Open(name, missing);
  sqlite3_busy_timeout(Get(), BUSY_TIMEOUT_MS);
  Execute(PAGE_SIZE);
  Execute("PRAGMA journal_mode = WAL");
  Execute("PRAGMA synchronous = FULL");
  Execute("PRAGMA foreign_keys = ON");
}

void Database::Open(const std::string& name, Missing missing) {
  const std::string link = "/proc/self/fd/" + std::to_string(folder.Get()) + "/" + name;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                    (missing == Missing::CREATE ? SQLITE_OPEN_CREATE : 0);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(link.c_str(), &opened, flags, ShortPaths());
  connection.reset(opened);
  if (result != SQLITE_OK) {
    ThrowError();
  }
}

void Database::Execute(const char* sql) {
  if (sqlite3_exec(Get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    ThrowError();
  }
}

void Database::InTransaction(const std::function<void()>& work) {
  Execute("BEGIN IMMEDIATE");
  try {
    work();
    Execute("COMMIT");
  } catch (...) {
    // Some failures have rolled back by themselves.
    sqlite3_exec(Get(), "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

void Database::ThrowError() const {
  const int code = sqlite3_errcode(Get());
  const std::string reason = sqlite3_errmsg(Get());
  if (code == SQLITE_NOTADB || code == SQLITE_CORRUPT) {
    throw DamagedDatabase(path + " is damaged: " + reason);
  }
  throw HostError(path + ": " + reason);
}

/// The log comes first: left alone beside a new database, it would be taken for that one's.
void Database::Rename(const std::string& folderPath, const std::string& from,
                      const std::string& to) {
  const std::filesystem::path folder(folderPath);
  std::error_code error;
  for (const char* end : {"-wal", "-shm", ""}) {
    const std::filesystem::path file = folder / (from + end);
    if (std::filesystem::exists(std::filesystem::symlink_status(file))) {
      std::filesystem::rename(file, folder / (to + end), error);
    }
    if (error) {
      throw HostError("cannot rename " + file.string() + ": " + error.message());
    }
  }
}

}  // namespace host
