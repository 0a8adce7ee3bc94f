#include "outputs/FrameFiles.h"

#include <filesystem>

#include "base/HostError.h"
#include "outputs/PngWriter.h"

namespace host {

namespace {

constexpr std::size_t DIGITS = 6;

std::string FileName(std::uint64_t number) {
  std::string digits = std::to_string(number);
  digits.insert(0, DIGITS - std::min(DIGITS, digits.size()), '0');
  return "/frame" + digits + ".png";
}

}  // namespace

FrameFiles::FrameFiles(const std::string& framesFolder, const std::string& shotFile)
    : folder(framesFolder), shot(shotFile) {
  if (folder.empty()) {
    return;
  }
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder)) {
    throw HostError("cannot create the folder " + folder + " for frames: " + error.message());
  }
}

void FrameFiles::Add(handheld::Pixels frame) {
  last = std::move(frame);
  if (!folder.empty()) {
    WritePng(folder + FileName(++count), last);
  }
}

void FrameFiles::Finish() const {
  if (shot.empty()) {
    return;
  }
  if (last.rows.empty()) {
    throw HostError("no picture in " + shot + ": nothing was drawn");
  }
  WritePng(shot, last);
}

}  // namespace host
