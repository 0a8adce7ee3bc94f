#include "web/DriveBook.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/HostError.h"
#include "base/UtcText.h"
#include "drives/DriveExport.h"
#include "drives/DriveStore.h"
#include "drives/DriveTexts.h"

namespace host {

namespace {

using Json = nlohmann::ordered_json;

constexpr double METRES_IN_KM = 1000;
constexpr double MS_IN_SECOND = 1000;
constexpr unsigned NOT_FOUND = 404;

double Round(double value) {
  constexpr double THOUSANDTHS_IN_ONE = 1000;
  return std::round(value * THOUSANDTHS_IN_ONE) / THOUSANDTHS_IN_ONE;
}

Json Describe(const Drive& drive) {
  const auto seconds = [](std::int64_t ms) {
    return Round(static_cast<double>(ms) / MS_IN_SECOND);
  };
  return {{"number", drive.number},
          {"source", drive.source},
          {"start", UtcText(drive.startMs)},
          {"end", UtcText(drive.endMs)},
          {"is_ended", drive.isEnded},
          {"distance_m", Round(drive.distanceKm * METRES_IN_KM)},
          {"max_speed_mps", Round(drive.highestKmh / KMH_PER_METRE_PER_SECOND)},
          {"moving_s", drive.moving ? Json(seconds(drive.moving->movingMs)) : Json()},
          {"stopped_s", drive.moving ? Json(seconds(drive.moving->stoppedMs)) : Json()}};
}

/// A file without a name, which disappears when it is closed.
std::shared_ptr<FileDescriptor> MakeFile(const std::string& folder) {
  constexpr mode_t OWNER_MODE = 0600;
  auto file = std::make_shared<FileDescriptor>(
      open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, OWNER_MODE));
  if (!file->IsOpen()) {
    throw HostError(std::string("no file can be made: ") + std::strerror(errno));
  }
  return file;
}

}  // namespace

bool DriveBook::HasDrives() const {
  return std::filesystem::exists(std::filesystem::path(home) / DriveStore::FILE_NAME);
}

Reply DriveBook::List() const {
  Json list = Json::array();
  if (HasDrives()) {
    DriveStore store(home, Database::Missing::REFUSE);
    for (const Drive& drive : store.List()) {
      list.push_back(Describe(drive));
    }
  }
  constexpr int ONE_LINE = -1;
  constexpr bool AS_UTF8 = false;
  Reply reply;
  reply.type = "application/json";
  reply.body = list.dump(ONE_LINE, ' ', AS_UTF8, Json::error_handler_t::replace) + "\n";
  return reply;
}

Reply DriveBook::Export(std::int64_t number) const {
  if (!HasDrives()) {
    return TextReply(NOT_FOUND, "There is no such drive.");
  }
  DriveStore store(home, Database::Missing::REFUSE);
  const std::vector<Drive> drives = store.List();
  const auto found = std::ranges::find(drives, number, &Drive::number);
  if (found == drives.end()) {
    return TextReply(NOT_FOUND, "There is no such drive.");
  }
  Reply reply;
  reply.file = MakeFile(home);
  reply.type = "application/gpx+xml";
  reply.headers.emplace_back(
      "Content-Disposition",
      "attachment; filename=\"" + DescribeFileTime(found->startMs) + ".gpx\"");
  ExportDrives(store, {*found}, TrackFormat::GPX,
               "/proc/self/fd/" + std::to_string(reply.file->Get()));
  return reply;
}

std::size_t DriveBook::Count() const {
  try {
    return HasDrives() ? DriveStore(home, Database::Missing::REFUSE).Count() : 0;
  } catch (const HostError&) {
    return 0;
  }
}

}  // namespace host
