// The program as a whole.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Runs the program with these arguments, without the program's name. Returns the exit status: 0
/// for success, 1 for a failure, 2 for a wrong command line. Prints an error as one line on
/// standard error.
int RunApplication(const std::vector<std::string>& arguments);

}  // namespace host
