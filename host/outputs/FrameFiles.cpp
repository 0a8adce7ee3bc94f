#include "outputs/FrameFiles.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <utility>

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

void CreateFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder)) {
    throw HostError("cannot create the folder " + folder + " for frames: " + error.message());
  }
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    throw HostError("cannot write frames to " + folder + ": " + std::strerror(errno));
  }
}

}  // namespace

FrameFiles::FrameFiles(RenderWindow& window, std::string folder, std::string shot)
    : window(window), folder(std::move(folder)), shot(std::move(shot)) {
  if (!this->folder.empty()) {
    CreateFolder(this->folder);
  }
  if (!this->shot.empty()) {
    CheckPngPath(this->shot);
  }
}

bool FrameFiles::OnUpdate() {
  std::optional<handheld::Pixels> frame = window.AwaitFrame();
  if (!frame) {
    return false;
  }
  last = std::move(*frame);
  if (!folder.empty()) {
    WritePng(folder + FileName(++count), last);
  }
  return false;
}

void FrameFiles::Finish() {
  if (shot.empty()) {
    return;
  }
  if (last.rows.empty()) {
    throw HostError("no picture in " + shot + ": nothing was drawn");
  }
  WritePng(shot, last);
}

}  // namespace host
