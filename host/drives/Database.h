// An SQLite database.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <string>

#include "base/FileDescriptor.h"
#include "base/HostError.h"

namespace host {

/// A file whose content is no sound database.
class DamagedDatabase : public HostError {
 public:
  using HostError::HostError;
};

/// One connection, for one thread at a time. Every commit is on the disk when it returns, and no
/// power cut harms the database.
class Database {
 public:
  enum class Missing { CREATE, REFUSE };

  /// A new file is readable for its owner only. All methods throw HostError when the file cannot be
  /// used, DamagedDatabase when its content is the reason; the error names it.
  Database(const std::string& folder, const std::string& name, Missing missing);

  /// Runs statements without results.
  void Execute(const char* sql);

  /// Everything that `work` changes, or nothing when it throws.
  void InTransaction(const std::function<void()>& work);

  const std::string& GetPath() const { return path; }

  sqlite3* Get() const { return connection.get(); }

  /// Throws the latest failure.
  [[noreturn]] void ThrowError() const;

  /// Gives the files of a database that nobody uses another name. Throws HostError when that fails.
  static void Rename(const std::string& folder, const std::string& from, const std::string& to);

 private:
  struct Close {
    void operator()(sqlite3* toClose) const { sqlite3_close(toClose); }
  };

  void Open(const std::string& name, Missing missing);

  std::string path;
  FileDescriptor folder;
  std::unique_ptr<sqlite3, Close> connection;
};

}  // namespace host
