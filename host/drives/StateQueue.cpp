#include "drives/StateQueue.h"

#include "drives/DriveSchema.h"
#include "drives/DriveStore.h"
#include "drives/Statement.h"

namespace host {

StateQueue::StateQueue(const std::string& folder, std::int64_t mostKept)
    : database(folder, DriveStore::FILE_NAME, Database::Missing::CREATE), mostKept(mostKept) {
  MigrateDrives(database);
  Statement row(database, "SELECT name FROM state_series");
  row.Next();
  series = row.GetText(0);
}

/// Numbers have no gaps: the oldest states go first.
std::int64_t StateQueue::Add(const std::vector<std::string>& states, std::int64_t taken) {
  std::int64_t givenUp = 0;
  database.InTransaction([&] {
    Statement(database, "DELETE FROM states WHERE number <= ?").With(taken).Run();
    Statement add(database, "INSERT INTO states (state) VALUES (?)");
    for (const std::string& state : states) {
      add.With(state).Run();
    }
    Statement(database, "DELETE FROM states WHERE number <= (SELECT max(number) FROM states) - ?")
        .With(mostKept)
        .Run();
    givenUp = sqlite3_changes(database.Get());
  });
  return givenUp;
}

std::vector<StateQueue::State> StateQueue::Read(std::int64_t behind, std::size_t most) {
  std::vector<State> states;
  Statement row(database,
                "SELECT number, state FROM states WHERE number > ? ORDER BY number LIMIT ?");
  row.With(behind, static_cast<std::int64_t>(most));
  while (row.Next()) {
    states.push_back({row.GetInteger(0).value_or(0), row.GetText(1)});
  }
  return states;
}

std::int64_t StateQueue::Count() {
  Statement row(database, "SELECT count(*) FROM states");
  row.Next();
  return row.GetInteger(0).value_or(0);
}

}  // namespace host
