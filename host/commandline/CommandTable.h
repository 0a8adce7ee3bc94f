// The commands for kept drives.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "commandline/Options.h"

namespace host {

/// Adds the commands "drives", "drives delete" and "export" to a CLI11 application that has all
/// options. Parsing fills `options` in.
class CommandTable {
 public:
  /// Both outlive the table, and parsing needs all three.
  CommandTable(CLI::App& app, Options& options);
  CommandTable(const CommandTable&) = delete;
  CommandTable& operator=(const CommandTable&) = delete;

  /// After parsing: throws UsageError when a command lacks something, or has an option of a run.
  void Check() const;

  /// The options of the application and of its commands that were given.
  static std::vector<const CLI::Option*> FindOptions(const CLI::App& app);

 private:
  void AddDrives();
  void AddExport();
  void Choose(Options::Action action);
  void AddFile(CLI::App& command, const char* name, std::string& target);
  void RefuseRunOptions() const;

  CLI::App& app;
  Options& options;
};

}  // namespace host
