// A prepared statement of a database.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "drives/Database.h"

namespace host {

/// All methods throw HostError when the database cannot be used.
class Statement {
 public:
  /// The database outlives the statement.
  Statement(Database& database, const char* sql);

  /// Starts anew with these values for the question marks.
  template <class... Values>
  Statement& With(const Values&... values) {
    sqlite3_reset(statement.get());
    int index = 0;
    (Bind(++index, values), ...);
    return *this;
  }

  /// Goes to the next row of the result. False behind the last one.
  bool Next();

  /// Runs a statement without a result.
  void Run() {
    while (Next()) {
    }
  }

  // Values of the row; columns count from 0. Nothing for NULL.
  std::optional<std::int64_t> GetInteger(int column) const;
  std::optional<double> GetReal(int column) const;
  std::string GetText(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* toFinalize) const { sqlite3_finalize(toFinalize); }
  };

  void Bind(int index, std::int64_t value);
  void Bind(int index, double value);
  void Bind(int index, const std::string& value);
  template <class Value>
  void Bind(int index, const std::optional<Value>& value) {
    if (value) {
      Bind(index, *value);
    } else {
      BindNull(index);
    }
  }
  void Bind(int index, int value) { Bind(index, std::int64_t{value}); }
  void Bind(int index, bool value) { Bind(index, std::int64_t{value}); }
  void BindNull(int index);
  void Check(int result) const;

  Database& database;
  std::unique_ptr<sqlite3_stmt, Finalize> statement;
};

}  // namespace host
