#pragma once

#include <windows.h>

namespace ferolin {

/// How long the button bars stay up, in drawn bars. One countdown serves all bars of all views, and
/// each visible bar takes one count a frame: two bars take two. Used under the engine's data lock.
class BarCountdown {
 public:
  void Restart() { count = FULL; }
  void End() { count = 0; }
  /// Takes one count. False when none was left: the bar hides.
  bool TakeOne();
  /// How strongly bars are blended now, 0 to 255. They fade over the last counts.
  BYTE GetAlpha() const;

 private:
  static constexpr int FULL = 8;

  int count = FULL;
};

}  // namespace ferolin
