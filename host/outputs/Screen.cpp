#include "outputs/Screen.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <atomic>
#include <string_view>

namespace host {

namespace {

constexpr std::string_view SECOND_SCREEN = "\x1b[?1049h\x1b[?25l\x1b[2J";
constexpr std::string_view FIRST_SCREEN = "\x1b[?25h\x1b[?1049l";
constexpr std::string_view HOME = "\x1b[H";
constexpr std::string_view TITLE = "\x1b[1m";
constexpr std::string_view PLAIN = "\x1b[0m";
constexpr std::string_view ERASE_REST_OF_LINE = "\x1b[K";
constexpr std::string_view ERASE_BELOW = "\x1b[J";

std::atomic<bool> isShown = false;

}  // namespace

bool Screen::IsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

Screen::Size Screen::GetSize() {
  winsize size = {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0) {
    return {80, 24};
  }
  return {size.ws_col, size.ws_row};
}

void Screen::Restore() {
  if (isShown.exchange(false)) {
    [[maybe_unused]] const ssize_t written =
        write(STDOUT_FILENO, FIRST_SCREEN.data(), FIRST_SCREEN.size());
  }
}

void Screen::Show(const std::vector<std::string>& lines) {
  std::string picture;
  if (!isShown.exchange(true)) {
    picture += SECOND_SCREEN;
  }
  picture += HOME;
  picture += TITLE;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    picture += lines[i];
    picture += i == 0 ? PLAIN : std::string_view();
    picture += ERASE_REST_OF_LINE;
    picture += i + 1 < lines.size() ? std::string_view("\r\n") : ERASE_BELOW;
  }
  output.Write(picture);
}

}  // namespace host
