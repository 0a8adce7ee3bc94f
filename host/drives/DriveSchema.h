// The tables of the drives and of what lies beside them.
#pragma once

#include "drives/Database.h"

namespace host {

/// The schema has a version, PRAGMA user_version; each step makes the next version of the one
/// before, from an empty database on. Throws HostError when the database is of a newer version or
/// cannot be used.
void MigrateDrives(Database& database);

}  // namespace host
