#include "commandline/CommandTable.h"

#include <algorithm>
#include <array>

#include "base/HostError.h"

namespace host {

namespace {

/// Options of the application that go with every command.
constexpr std::array<std::string_view, 4> COMMON_OPTIONS = {"home", "units", "help", "version"};

bool IsNumber(const std::string& text) {
  constexpr std::size_t LONGEST = 18;
  return !text.empty() && text.size() <= LONGEST &&
         text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

CommandTable::CommandTable(CLI::App& app, Options& options) : app(app), options(options) {
  AddDrives();
  AddExport();
}

void CommandTable::AddDrives() {
  CLI::App& drives = *app.add_subcommand("drives");
  drives.fallthrough();
  drives.parse_complete_callback([this] { Choose(Options::Action::LIST_DRIVES); });
  CLI::App& remove = *drives.add_subcommand("delete");
  remove.fallthrough();
  remove.add_option("N", options.drives.which);
  remove.add_flag("--yes", options.drives.isConfirmed);
  remove.parse_complete_callback([this] { Choose(Options::Action::DELETE_DRIVE); });
}

void CommandTable::AddExport() {
  CLI::App& command = *app.add_subcommand("export");
  command.fallthrough();
  command.add_option("WHICH", options.drives.which);
  AddFile(command, "--gpx", options.drives.gpxFile);
  AddFile(command, "--kml", options.drives.kmlFile);
  AddFile(command, "--csv", options.drives.csvFile);
  AddFile(command, "--geojson", options.drives.geoJsonFile);
  command.parse_complete_callback([this] { Choose(Options::Action::EXPORT_DRIVES); });
}

/// "drives delete" is complete before "drives" is, and --help comes before both.
void CommandTable::Choose(Options::Action action) {
  if (options.action == Options::Action::RUN) {
    options.action = action;
  }
}

void CommandTable::AddFile(CLI::App& command, const char* name, std::string& target) {
  const auto store = [name, &target](const std::string& file) {
    if (file.empty()) {
      throw UsageError(std::string(name) + " needs FILE");
    }
    target = file;
  };
  command.add_option_function<std::string>(name, store)->option_text("FILE")->trigger_on_parse();
}

void CommandTable::Check() const {
  const std::string& which = options.drives.which;
  switch (options.action) {
    case Options::Action::DELETE_DRIVE:
      if (!IsNumber(which)) {
        throw UsageError("drives delete needs N, the number of a drive");
      }
      break;
    case Options::Action::EXPORT_DRIVES:
      if (which != "last" && which != "all" && !IsNumber(which)) {
        throw UsageError("export needs last, all or N, the number of a drive");
      }
      break;
    case Options::Action::LIST_DRIVES:
      break;
    default:
      return;
  }
  RefuseRunOptions();
}

void CommandTable::RefuseRunOptions() const {
  for (const CLI::Option* option : app.get_options()) {
    const std::string name = option->get_lnames().front();
    const bool isCommon =
        std::find(COMMON_OPTIONS.begin(), COMMON_OPTIONS.end(), name) != COMMON_OPTIONS.end();
    if (option->count() > 0 && !isCommon) {
      throw UsageError("--" + name + " does not go with " +
                       app.get_subcommands().front()->get_name());
    }
  }
}

std::vector<const CLI::Option*> CommandTable::FindOptions(const CLI::App& app) {
  std::vector<const CLI::Option*> found;
  for (const CLI::Option* option : app.get_options()) {
    if (!option->get_lnames().empty()) {
      found.push_back(option);
    }
  }
  for (const CLI::App* command : app.get_subcommands()) {
    const std::vector<const CLI::Option*> its = FindOptions(*command);
    found.insert(found.end(), its.begin(), its.end());
  }
  return found;
}

}  // namespace host
