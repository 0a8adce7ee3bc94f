// The program as a whole.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Does what the arguments (without the program's name) ask for and returns the exit status: 0, 1
/// for a failure, 2 for a wrong command line. Failures are said on standard error in one line.
int RunApplication(const std::vector<std::string>& arguments);

}  // namespace host
