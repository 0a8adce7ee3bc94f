// The terminal that standard output is shown on.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Standard output, written at once and whole.
class StandardOutput {
 public:
  /// False when nobody reads it any more or it cannot be written; then nothing more is.
  bool Write(std::string_view text);

  bool IsBroken() const { return broken; }
  /// Why, as errno has it; 0 when it works, and EPIPE when its reader went away.
  int GetError() const { return error; }

 private:
  bool broken = false;
  int error = 0;
};

/// A full-screen picture of text lines on a terminal's second screen.
class Screen {
 public:
  struct Size {
    std::size_t columns;
    std::size_t rows;
  };

  static bool IsTerminal();
  /// 80 by 24 when the terminal does not tell.
  static Size GetSize();

  /// Back to the ordinary screen with its cursor, if a picture was shown. May be called on any
  /// thread.
  static void Restore();

  explicit Screen(StandardOutput& outputToUse) : output(outputToUse) {}
  ~Screen() { Restore(); }

  /// The first line is set off as the title. Lines must fit the terminal's size.
  void Show(const std::vector<std::string>& lines);

 private:
  StandardOutput& output;
};

}  // namespace host
