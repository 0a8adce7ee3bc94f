#include "run/DriveCommands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>

#include "base/HostError.h"
#include "drives/DriveExport.h"
#include "drives/DriveList.h"

namespace host {

namespace {

struct ExportFile {
  TrackFormat format;
  std::string Options::Drives::*file;
};

constexpr std::array EXPORT_FILES = {
    ExportFile{TrackFormat::GPX, &Options::Drives::gpxFile},
    ExportFile{TrackFormat::KML, &Options::Drives::kmlFile},
    ExportFile{TrackFormat::CSV, &Options::Drives::csvFile},
    ExportFile{TrackFormat::GEOJSON, &Options::Drives::geoJsonFile},
};

Drive Find(const std::vector<Drive>& drives, const std::string& number) {
  const auto found = std::find_if(drives.begin(), drives.end(), [&number](const Drive& drive) {
    return drive.number == std::stoll(number);
  });
  if (found == drives.end()) {
    throw HostError("there is no drive " + number + " (drives lists them)");
  }
  return *found;
}

std::vector<Drive> Choose(const std::vector<Drive>& drives, const std::string& which) {
  if (drives.empty()) {
    throw HostError("no drive was kept yet");
  }
  if (which == "all") {
    return drives;
  }
  return {which == "last" ? drives.back() : Find(drives, which)};
}

/// False when the user says no. Throws HostError when nobody answers.
bool IsWanted(const Drive& drive, Units units) {
  std::cerr << "Delete " + DescribeDrive(drive, units) + "? [y/N] " << std::flush;
  std::string answer;
  if (!std::getline(std::cin, answer)) {
    throw HostError("nothing was deleted: nobody answered (--yes deletes without asking)");
  }
  return answer == "y" || answer == "Y" || answer == "yes";
}

}  // namespace

DriveCommands::DriveCommands(std::string home, StandardOutput& output, Messages& messages)
    : home(std::move(home)), output(output), messages(messages) {}

void DriveCommands::Run(const Options& options) {
  units = options.units;
  std::error_code error;
  if (!std::filesystem::exists(home + "/" + DriveStore::FILE_NAME, error)) {
    throw HostError("no drive was kept yet in " + home);
  }
  switch (options.action) {
    case Options::Action::DELETE_DRIVE:
      Delete(options.drives);
      break;
    case Options::Action::EXPORT_DRIVES:
      Export(options.drives);
      break;
    default:
      List();
      break;
  }
}

DriveStore DriveCommands::Open() const {
  return {home, Database::Missing::REFUSE};
}

void DriveCommands::List() {
  output.Write(ListDrives(Open().List(), units));
}

void DriveCommands::Delete(const Options::Drives& options) {
  DriveStore store = Open();
  const Drive drive = Find(store.List(), options.which);
  if (!drive.isEnded) {
    throw HostError(DescribeDrive(drive, units) +
                    ", has not ended: it is being driven, or the next start of a drive ends it");
  }
  if (options.isConfirmed || IsWanted(drive, units)) {
    store.Delete(drive.number);
    messages.Say("deleted " + DescribeDrive(drive, units));
  }
}

void DriveCommands::Export(const Options::Drives& options) {
  DriveStore store = Open();
  const std::vector<Drive> drives = Choose(store.List(), options.which);
  bool isAsked = false;
  for (const ExportFile& each : EXPORT_FILES) {
    if (const std::string& file = options.*each.file; !file.empty()) {
      ExportDrives(store, drives, each.format, file);
      isAsked = true;
    }
  }
  if (!isAsked) {
    ExportDrives(store, drives, TrackFormat::GPX, "-");
  }
}

}  // namespace host
