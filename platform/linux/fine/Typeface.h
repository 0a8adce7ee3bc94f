// Text in twins.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "fine/Twin.h"

namespace handheld::fine {

/// Line of text whose measured cell is `width` logical pixels wide.
struct TextLook {
  std::u32string_view text;
  /// Start of the base line.
  POINT origin;
  int width;
  std::uint32_t rgb;
};

/// A font file at one size and angle, drawn without hints. The caller holds the lock of fonts, also
/// for the destructor.
class Typeface {
 public:
  /// `em` is the height of the em square in logical pixels, `angle` counter-clockwise, in radians.
  /// Draws nothing when the file cannot be read.
  Typeface(const std::string& path, long index, int em, double angle);
  ~Typeface();
  Typeface(const Typeface&) = delete;
  Typeface& operator=(const Typeface&) = delete;

  /// Letters that are narrower or wider than those measured, which are hinted, stand farther apart
  /// or closer together, so that the text fills its cell.
  void Draw(Twin& twin, const TextLook& look);

 private:
  struct Parts;
  struct Letter;
  /// Makes the font at that scale, unless it is there.
  void Scale(double newScale);
  const Letter& GetLetter(char32_t character);

  const int em;
  const double angle;
  /// Null without a readable file.
  std::unique_ptr<Parts> parts;
};

}  // namespace handheld::fine
