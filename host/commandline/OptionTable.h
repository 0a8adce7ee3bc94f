// All options with their help.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "commandline/Options.h"

namespace host {

/// Adds the options to a CLI11 application. Parsing fills `options` in, in the order of the command
/// line; a later option overrides an earlier one. Throws UsageError for a value that does not fit.
class OptionTable {
 public:
  /// Both outlive the table, and parsing needs all three.
  OptionTable(CLI::App& app, Options& options);
  OptionTable(const OptionTable&) = delete;
  OptionTable& operator=(const OptionTable&) = delete;

  /// "--nmea needs FILE".
  std::string DescribeMissingValue(const std::string& name) const;

 private:
  using TakeFlag = std::function<void()>;
  using TakeText = std::function<void(const std::string& text)>;

  void AddSources();
  void AddPlayback();
  void AddOutputs();
  void AddWindow();
  void AddView();
  void AddPictures();
  void AddWeb();
  void AddTrip();
  void AddSounds();
  void AddMessages();
  void AddMqtt();
  void AddOthers();

  /// Heading of the options added from here on.
  void StartGroup(const char* heading);
  void AddFlag(const char* name, const char* help, const TakeFlag& take);
  /// Option with a value. Names the option and the text in the UsageError when `take` throws
  /// BadValue.
  void AddValue(const char* name, const char* valueName, const char* help, const TakeText& take);
  /// Option that may go without its value; `take` gets an empty text then. Else as AddValue.
  void AddOptionalValue(const char* name, const char* valueName, const char* help,
                        const TakeText& take);

  /// Option with two values.
  void AddPair(const char* name, const char* valueNames, const char* help, std::string& first,
               std::string& second);

  void ChooseSource(const std::string& name, Options::Source source);
  void AddLimit(const std::string& text);

  CLI::App& app;
  Options& options;
  /// Option that chose the source; empty at first.
  std::string sourceName;
};

}  // namespace host
