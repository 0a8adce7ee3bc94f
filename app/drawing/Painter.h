// Draws pages: shapes into a bitmap of its own, texts by the system.
#pragma once

#include <vector>

#include "base/WideString.h"
#include "drawing/Icons.h"
#include "drawing/PixelBitmap.h"
#include "drawing/Shapes.h"
#include "drawing/Theme.h"

namespace app {

using ferolin::WideString;
using ferolin::WideStringView;

/// One frame of a page at a time. A length in units is 1/96 of the larger of the screen's dots per
/// inch and 96 x shorter side / 320.
class Painter {
 public:
  Painter() = default;
  Painter(const Painter&) = delete;
  Painter& operator=(const Painter&) = delete;
  ~Painter();

  /// Starts a frame of that size with that resolution in dots per inch.
  void Begin(int width, int height, int dpi);
  /// Copies a part of the frame to the same place of the window's client area.
  void ShowIn(HWND window, const RECT& part) const { bitmap.ShowIn(window, part); }
  RECT GetFrameRect() const { return {0, 0, GetWidth(), GetHeight()}; }

  void SetTheme(const Theme& newTheme) { theme = &newTheme; }
  const Theme& GetTheme() const { return *theme; }

  int GetWidth() const { return bitmap.GetWidth(); }
  int GetHeight() const { return bitmap.GetHeight(); }
  int PixelsFrom(int units) const { return units * unit / UNITS; }
  int UnitsFrom(int pixels) const { return pixels * UNITS / unit; }

  Shapes& GetShapes() { return shapes; }

  enum class Align { LEFT, CENTER, RIGHT };

  /// Font heights of a text in units: the one wanted and the smallest one that still reads well.
  struct TextSize {
    int wanted;
    int smallest;
  };

  /// Draws one line, vertically centred in `rect`, in the largest size that fits.
  void DrawText(const WideString& text, const RECT& rect, TextSize size, Color color, Align align);

  /// As above, in two lines where one of the wanted size does not fit.
  void DrawLabel(const WideString& text, const RECT& rect, TextSize size, Color color);

  /// Breaks the text into lines of that width at blanks, and where a word is too wide within it.
  std::vector<WideString> BreakIntoLines(const WideString& text, int width, int units);

  int MeasureWidth(WideStringView text, int units);

  /// Texts of this frame that were wider than their place even in their smallest size.
  int CountClippedTexts() const { return clippedTexts; }

 private:
  static constexpr int UNITS = 96;

  struct SizedFont {
    int units;
    HFONT font;
  };

  HFONT GetFont(int units);
  void DeleteFonts();
  /// How many characters from the text's start fit into the width; at least 1.
  std::size_t CountFitting(WideStringView text, int width, int units);
  void DrawLine(const WideString& text, const RECT& rect, int units, Color color, Align align);
  /// Largest size down to the smallest one in which the text is no wider; 0 when there is none.
  int FindFittingSize(const WideString& text, int width, TextSize size);

  PixelBitmap bitmap;
  Shapes shapes{bitmap};
  const Theme* theme = &DARK_THEME;
  int unit = UNITS;
  std::vector<SizedFont> fonts;
  int clippedTexts = 0;
};

}  // namespace app
