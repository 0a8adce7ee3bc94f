// The program as a whole.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Runs the program under this name or path with these arguments. Called "ferolin", as it is
/// installed, it looks for a receiver unless a source is given; under other names it shows the
/// demo. Returns the exit status: 0
/// for success, 1 for a failure, 2 for a wrong command line. Prints an error as one line on
/// standard error.
int RunApplication(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace host
