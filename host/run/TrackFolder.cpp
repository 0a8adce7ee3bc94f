#include "run/TrackFolder.h"

#include <fstream>

#include "run/WritableFolder.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// Names that the engine gives, Track0001.kml to Track9999.kml.
constexpr std::size_t MOST_NAMES = 9999;

bool IsWhole(const fs::path& file) {
  constexpr std::string_view END = "</kml>";
  std::ifstream stream(file, std::ios::binary);
  std::string end(END.size(), 0);
  stream.seekg(-static_cast<std::streamoff>(END.size()), std::ios::end);
  return stream.read(end.data(), static_cast<std::streamsize>(end.size())) && end == END;
}

std::string DescribeFile(const fs::path& file, bool hadPosition) {
  if (!hadPosition) {
    return "the track in " + file.string() + " has no points: there was no position";
  }
  std::error_code error;
  const std::uintmax_t bytes = fs::file_size(file, error);
  return "track written to " + file.string() + " (" + std::to_string((bytes + 1023) / 1024) +
         " KB)";
}

}  // namespace

TrackFolder::TrackFolder(const std::string& path)
    : folder(MakeWritableFolder(path, "cannot write tracks to")), before(List()) {}

std::set<fs::path> TrackFolder::List() const {
  std::set<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    if (at->path().extension() == ".kml") {
      files.insert(at->path());
    }
  }
  return files;
}

TrackFolder::Outcome TrackFolder::Check(bool hadPosition) const {
  Outcome outcome;
  for (const fs::path& file : List()) {
    if (before.contains(file)) {
      continue;
    }
    const bool isWhole = IsWhole(file);
    outcome.isLost |= !isWhole;
    outcome.texts.push_back(isWhole ? DescribeFile(file, hadPosition)
                                    : "the track in " + file.string() +
                                          " is not complete: " + FindCause());
  }
  if (outcome.texts.empty()) {
    outcome.isLost = hadPosition;
    outcome.texts.push_back("no track written: " +
                            (hadPosition ? FindCause() : "there was no position"));
  }
  return outcome;
}

/// Why the engine may have failed to write.
std::string TrackFolder::FindCause() const {
  return List().size() >= MOST_NAMES ? "all 9,999 names are taken in " + folder.string()
                                     : DescribeWriteFailure(folder);
}

}  // namespace host
