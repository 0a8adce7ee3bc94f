// The layout and the general part of --help.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace host {

/// Introduction, options in their groups, keys, examples. Lines are at most 92 columns wide.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override;
  std::string make_group(std::string group, bool isPositional,
                         std::vector<const CLI::Option*> options) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
};

}  // namespace host
