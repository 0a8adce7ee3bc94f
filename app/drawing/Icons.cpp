#include "drawing/Icons.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace app {

namespace {

/// Ends a line and the whole icon.
constexpr std::int8_t NEXT = -1;
constexpr std::int8_t END = -2;

constexpr int GRID = 48;
constexpr int LINE_WIDTH = 4;  // on the grid
constexpr int MOST_POINTS = 24;

// Points x, y of one line after the other.
// clang-format off
constexpr std::int8_t NO_LINES[] = {END};
constexpr std::int8_t LIMITS_LINES[] = {
    8, 37, 6, 31, 6, 25, 8, 19, 12, 14, 18, 11, 24, 10, 30, 11, 36, 14, 40, 19, 42, 25,
    42, 31, 40, 37, NEXT,
    24, 28, 33, 17, NEXT,
    24, 28, 24, 28, END};
constexpr std::int8_t READOUTS_LINES[] = {
    6, 12, 6, 12, NEXT,
    6, 24, 6, 24, NEXT,
    6, 36, 6, 36, NEXT,
    15, 12, 43, 12, NEXT,
    15, 24, 43, 24, NEXT,
    15, 36, 43, 36, END};
constexpr std::int8_t RESET_LINES[] = {
    15, 14, 20, 11, 25, 10, 31, 11, 36, 14, 39, 19, 41, 24, 40, 30, 38, 35, 34, 39, 29, 42,
    23, 42, 17, 40, 13, 37, 10, 32, 9, 26, NEXT,
    15, 14, 15, 4, NEXT,
    15, 14, 25, 13, END};
constexpr std::int8_t RECEIVER_LINES[] = {
    10, 38, 10, 38, NEXT,
    9, 38, 11, 38, NEXT,
    8, 26, 13, 27, 18, 30, 21, 35, 22, 40, NEXT,
    8, 16, 17, 18, 25, 23, 30, 31, 32, 40, NEXT,
    8, 6, 21, 9, 32, 16, 39, 27, 42, 40, END};
constexpr std::int8_t PICTURE_LINES[] = {
    24, 5, 24, 43, NEXT,
    18, 12, 18, 38, 4, 38, 18, 12, NEXT,
    30, 12, 30, 38, 44, 38, 30, 12, END};
constexpr std::int8_t SCREEN_LINES[] = {
    33, 24, 32, 28, 28, 32, 24, 33, 20, 32, 16, 28, 15, 24, 16, 20, 19, 16, 24, 15, 28, 16,
    32, 19, 33, 24, NEXT,
    39, 24, 44, 24, NEXT,
    35, 35, 38, 38, NEXT,
    24, 39, 24, 44, NEXT,
    13, 35, 10, 38, NEXT,
    9, 24, 4, 24, NEXT,
    13, 13, 10, 10, NEXT,
    24, 9, 24, 4, NEXT,
    35, 13, 38, 10, END};
constexpr std::int8_t TRACK_LINES[] = {
    14, 38, 13, 41, 10, 42, 7, 41, 6, 38, 7, 35, 10, 34, 13, 35, 14, 38, NEXT,
    42, 10, 41, 13, 38, 14, 35, 13, 34, 10, 35, 7, 38, 6, 41, 7, 42, 10, NEXT,
    14, 38, 30, 38, 36, 34, 36, 28, 30, 24, 18, 24, 12, 20, 12, 14, 18, 10, 34, 10, END};
constexpr std::int8_t BEEP_LINES[] = {
    5, 18, 12, 18, 22, 9, 22, 39, 12, 30, 5, 30, 5, 18, NEXT,
    28, 18, 30, 21, 31, 24, 30, 27, 28, 30, NEXT,
    34, 12, 38, 17, 39, 24, 38, 31, 34, 36, END};
constexpr std::int8_t MESSAGE_LINES[] = {
    5, 11, 43, 11, 43, 37, 5, 37, 5, 11, 24, 26, 43, 11, END};
constexpr std::int8_t THEME_LINES[] = {
    42, 24, 41, 30, 38, 36, 33, 40, 27, 42, 21, 42, 15, 40, 10, 36, 7, 30, 6, 24, 7, 18,
    10, 12, 15, 8, 21, 6, 27, 6, 33, 8, 38, 12, 41, 18, 42, 24, NEXT,
    24, 6, 24, 42, NEXT,
    29, 11, 29, 37, NEXT,
    34, 14, 34, 34, NEXT,
    38, 18, 38, 30, END};
constexpr std::int8_t ABOUT_LINES[] = {
    43, 24, 42, 30, 39, 36, 34, 40, 27, 43, 21, 43, 15, 40, 9, 36, 6, 30, 5, 24, 6, 18,
    9, 12, 14, 8, 21, 5, 27, 5, 34, 8, 39, 12, 42, 18, 43, 24, NEXT,
    24, 14, 24, 14, NEXT,
    24, 22, 24, 35, END};
constexpr std::int8_t QUIT_LINES[] = {
    34, 12, 38, 16, 41, 22, 41, 28, 39, 34, 35, 39, 30, 42, 24, 43, 18, 42, 13, 39, 9, 34,
    7, 28, 7, 22, 10, 16, 14, 12, NEXT,
    24, 5, 24, 24, END};
constexpr std::int8_t BACK_LINES[] = {
    30, 10, 16, 24, 30, 38, END};
constexpr std::int8_t FORWARD_LINES[] = {
    18, 10, 32, 24, 18, 38, END};
constexpr std::int8_t CHECK_LINES[] = {
    8, 26, 19, 37, 41, 12, END};
constexpr std::int8_t PLUS_LINES[] = {
    24, 10, 24, 38, NEXT,
    10, 24, 38, 24, END};
constexpr std::int8_t MINUS_LINES[] = {
    10, 24, 38, 24, END};
constexpr std::int8_t ERASE_LINES[] = {
    16, 11, 44, 11, 44, 37, 16, 37, 4, 24, 16, 11, NEXT,
    23, 18, 35, 30, NEXT,
    35, 18, 23, 30, END};
// clang-format on

constexpr std::array<const std::int8_t*, static_cast<std::size_t>(Icon::COUNT)> ICONS = {
    NO_LINES,      LIMITS_LINES, READOUTS_LINES, RESET_LINES, RECEIVER_LINES,
    PICTURE_LINES, SCREEN_LINES, TRACK_LINES,    BEEP_LINES,  MESSAGE_LINES,
    THEME_LINES,   ABOUT_LINES,  QUIT_LINES,     BACK_LINES,  FORWARD_LINES,
    CHECK_LINES,   PLUS_LINES,   MINUS_LINES,    ERASE_LINES};

/// A coordinate of the grid in 1/16 of a pixel.
int FineFrom(int start, int gridStep, int size) {
  return start * FINE + gridStep * size * FINE / GRID;
}

}  // namespace

void DrawIcon(Shapes& shapes, Icon icon, int left, int top, int size, Color color) {
  const int fineWidth = std::max(LINE_WIDTH * size * FINE / GRID, FINE + FINE / 2);
  std::array<FinePoint, MOST_POINTS> points;
  std::size_t count = 0;
  for (const std::int8_t* step = ICONS[static_cast<std::size_t>(icon)];;) {
    if (*step >= 0) {
      points[count++] = {FineFrom(left, step[0], size), FineFrom(top, step[1], size)};
      step += 2;
      continue;
    }
    shapes.DrawLines(std::span(points.data(), count), fineWidth, color);
    count = 0;
    if (*step == END) {
      return;
    }
    ++step;
  }
}

}  // namespace app
