// Lists, deletes and exports kept drives.
#pragma once

#include <string>
#include <vector>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "drives/Drive.h"
#include "drives/DriveStore.h"
#include "outputs/StandardOutput.h"

namespace host {

class DriveCommands {
 public:
  /// `home` is the folder of the drives. Output and messages outlive this object.
  DriveCommands(std::string home, StandardOutput& output, Messages& messages);

  /// Does what the action of `options` says. Throws HostError.
  void Run(const Options& options);

 private:
  void List();
  void Delete(const Options::Drives& options);
  void Export(const Options::Drives& options);
  DriveStore Open() const;

  const std::string home;
  Units units = Units::KM;
  StandardOutput& output;
  Messages& messages;
};

}  // namespace host
