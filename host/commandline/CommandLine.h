// The command line, read into Options.
#pragma once

#include <string>
#include <vector>

#include "commandline/Options.h"

namespace host {

/// Reads the arguments behind the program's name; `source` is the one when they name none. Throws
/// UsageError.
Options ParseOptions(const std::vector<std::string>& arguments,
                     Options::Source source = Options::Source::DEMO);

/// The text of --help.
std::string GetHelp();

}  // namespace host
