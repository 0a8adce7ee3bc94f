#include "drives/Statement.h"

namespace host {

Statement::Statement(Database& database, const char* sql) : database(database) {
  constexpr int WHOLE_TEXT = -1;
  sqlite3_stmt* prepared = nullptr;
  Check(sqlite3_prepare_v2(database.Get(), sql, WHOLE_TEXT, &prepared, nullptr));
  statement.reset(prepared);
}

bool Statement::Next() {
  const int result = sqlite3_step(statement.get());
  if (result != SQLITE_ROW) {
    // A statement that is not reset holds its lock.
    Check(sqlite3_reset(statement.get()));
  }
  return result == SQLITE_ROW;
}

std::optional<std::int64_t> Statement::GetInteger(int column) const {
  const bool isNull = sqlite3_column_type(statement.get(), column) == SQLITE_NULL;
  return isNull ? std::nullopt : std::optional(sqlite3_column_int64(statement.get(), column));
}

std::optional<double> Statement::GetReal(int column) const {
  const bool isNull = sqlite3_column_type(statement.get(), column) == SQLITE_NULL;
  return isNull ? std::nullopt : std::optional(sqlite3_column_double(statement.get(), column));
}

std::string Statement::GetText(int column) const {
  const unsigned char* text = sqlite3_column_text(statement.get(), column);
  return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

void Statement::Bind(int index, std::int64_t value) {
  Check(sqlite3_bind_int64(statement.get(), index, value));
}

void Statement::Bind(int index, double value) {
  Check(sqlite3_bind_double(statement.get(), index, value));
}

void Statement::Bind(int index, const std::string& value) {
  Check(sqlite3_bind_text(statement.get(), index, value.data(), static_cast<int>(value.size()),
                          SQLITE_TRANSIENT));
}

void Statement::BindNull(int index) {
  Check(sqlite3_bind_null(statement.get(), index));
}

void Statement::Check(int result) const {
  if (result != SQLITE_OK) {
    database.ThrowError();
  }
}

}  // namespace host
