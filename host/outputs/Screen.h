// The terminal that standard output is shown on.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "outputs/StandardOutput.h"

namespace host {

/// A full-screen picture of text lines on a terminal's second screen.
class Screen {
 public:
  struct Size {
    std::size_t columns;
    std::size_t rows;
  };

  static bool IsTerminal();
  /// 80 by 24 when the terminal does not tell its size.
  static Size GetSize();

  /// Returns to the ordinary screen with its cursor if a picture was shown. May be called on any
  /// thread.
  static void Restore();

  /// The output outlives it.
  explicit Screen(StandardOutput& output) : output(output) {}
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen() { Restore(); }

  /// Shows the first line as the title. Lines must fit the terminal's size.
  void Show(const std::vector<std::string>& lines);

 private:
  StandardOutput& output;
};

}  // namespace host
