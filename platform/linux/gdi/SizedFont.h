// A font at one size and angle: its metrics and glyphs.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <windows.h>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "fine/Typeface.h"
#include "gdi/FontFiles.h"

namespace handheld::gdi {

/// Pixels and measures of a glyph.
struct Glyph {
  /// Pixels to the next glyph in measured text.
  int width = 0;
  /// Pixels to the next glyph in drawn text; can differ from `width` without smoothing.
  int advance = 0;
  /// Offset from the origin on the base line to the upper left pixel, y upwards.
  int left = 0;
  int top = 0;
  int columns = 0;
  int rows = 0;
  /// Coverage of each pixel, 0 to 16, row by row from the top.
  std::vector<std::uint8_t> coverage;
};

class SizedFont {
 public:
  static constexpr int FULL_COVERAGE = 16;

  /// Heights above 0 are those of the cell, below 0 those of the em square; 0 is a default. 1000
  /// pixels are the most. The angle is in tenths of a degree, counter-clockwise.
  SizedFont(FontFile fontFile, LONG height, LONG tenthsOfDegrees);
  ~SizedFont();
  SizedFont(const SizedFont&) = delete;
  SizedFont& operator=(const SizedFont&) = delete;

  /// Pixels above the base line, and height of a line; both of the upright font.
  int GetAscent() const { return ascent; }
  int GetLineHeight() const { return ascent + descent; }
  /// Counter-clockwise, in radians.
  double GetAngle() const { return angle; }

  /// The same font, drawn finely. Lives as long as this one.
  fine::Typeface& GetTypeface();

  /// Memory of the glyphs used so far.
  std::size_t GetBytes() const { return bytes; }

  /// The reference lives as long as the font. Without a font file all glyphs are empty.
  const Glyph& GetGlyph(char32_t character);

 private:
  void SetSize(LONG height);
  bool WantsSmoothGlyphs() const;
  Glyph Load(char32_t character);
  /// Pixels from the origin on the base line, y upwards.
  struct PixelBox {
    int left;
    int bottom;
    int right;
    int top;
  };
  PixelBox GetUprightBox() const;
  PixelBox GetTurned(const PixelBox& box) const;
  void Render(Glyph& glyph) const;
  static void TakeCoverage(Glyph& glyph, const FT_Bitmap& bitmap);

  const FontFile file;
  FT_Face face = nullptr;
  double angle;
  std::unique_ptr<fine::Typeface> typeface;
  /// Set for fonts that are not upright.
  std::optional<FT_Matrix> rotation;
  int ascent = 0;
  int descent = 0;
  bool isSmooth = true;
  std::map<char32_t, Glyph> glyphs;
  std::size_t bytes = 0;
};

struct Font;

/// Glyphs of a font, cached for the next use. The caller holds FontLock; the reference is valid
/// while it does.
SizedFont& SizedFontOf(const Font& font);

/// Held around every use of fonts: they share one FreeType library.
std::mutex& FontLock();

}  // namespace handheld::gdi
