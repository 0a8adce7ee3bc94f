// DrawTextW: measuring and drawing of text.
#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>
#include <string>
#include <vector>

#include "core/LastError.h"
#include "gdi/DeviceContext.h"
#include "gdi/SizedFont.h"
#include "gdi/Twins.h"

namespace handheld::gdi {

namespace {

using Line = std::u32string;

/// Brightness of white text on black by coverage; proportional values would make thin strokes
/// vanish. Black text on white has the brightness of white text with as much uncovered.
constexpr std::array<std::uint32_t, SizedFont::FULL_COVERAGE + 1> BRIGHTNESS = {
    0x00, 0x4D, 0x68, 0x7C, 0x8C, 0x9A, 0xA7, 0xB2, 0xBD,
    0xC7, 0xD0, 0xD9, 0xE1, 0xE9, 0xF0, 0xF8, 0xFF};
/// Smaller coverage leaves the background unchanged.
constexpr int LEAST_COVERAGE = 2;

bool IsLead(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTrail(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

enum class Ampersand { MARKS_SHORTCUT, IS_CHARACTER };

/// Splits at CR, LF or both. An "&" that marks a shortcut is not shown; "&&" then shows "&".
std::vector<Line> SplitLines(std::u16string_view text, Ampersand ampersand) {
  std::vector<Line> lines;
  bool isLineOpen = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isLineOpen) {
      lines.emplace_back();
      isLineOpen = true;
    }
    if (text[i] == u'\r' || text[i] == u'\n') {
      if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
        ++i;
      }
      isLineOpen = false;
      continue;
    }
    const bool isMark = text[i] == u'&' && ampersand == Ampersand::MARKS_SHORTCUT;
    if (isMark && ++i == text.size()) {
      break;
    }
    char32_t character = text[i];
    if (IsLead(text[i]) && i + 1 < text.size() && IsTrail(text[i + 1])) {
      character = 0x10000 + ((character - 0xD800) << 10) + (text[++i] - 0xDC00U);
    }
    lines.back().push_back(character);
  }
  return lines;
}

int WidthOf(SizedFont& font, const Line& line) {
  int width = 0;
  for (const char32_t character : line) {
    width += font.GetGlyph(character).width;
  }
  return width;
}

/// Moves `below` towards `text` by the coverage, on the brightness curve of light text or of dark
/// text.
std::uint32_t BlendChannel(std::uint32_t below, std::uint32_t text, int coverage) {
  if (below > text) {
    const auto uncovered = static_cast<std::size_t>(SizedFont::FULL_COVERAGE - coverage);
    const std::uint32_t limit = text + (255 - text) * BRIGHTNESS[uncovered] / 255;
    return text + (below - text) * (limit - text) / (255 - text);
  }
  if (below < text) {
    const std::uint32_t limit = text * BRIGHTNESS[static_cast<std::size_t>(coverage)] / 255;
    return text - (text - below) * (text - limit) / text;
  }
  return text;
}

std::uint32_t Blend(std::uint32_t below, std::uint32_t text, int coverage) {
  std::uint32_t result = 0;
  for (const int shift : {16, 8, 0}) {
    result |= BlendChannel(below >> shift & 255, text >> shift & 255, coverage) << shift;
  }
  return result;
}

/// Paints glyphs in one colour on one target.
class GlyphPainter {
 public:
  GlyphPainter(const Target& paintTarget, COLORREF color)
      : target(paintTarget),
        pixel(paintTarget.raster.PixelFrom(color)),
        argb(target.raster.format == PixelFormat::RGB555 ? ArgbFrom555(pixel) : pixel) {}

  void Paint(const Glyph& glyph, LONG left, LONG top) const {
    const RECT visible =
        Intersect({left, top, left + glyph.columns, top + glyph.rows}, target.clip);
    for (LONG y = visible.top; y < visible.bottom; ++y) {
      const std::uint8_t* coverage =
          glyph.coverage.data() + static_cast<std::ptrdiff_t>(y - top) * glyph.columns - left;
      for (LONG x = visible.left; x < visible.right; ++x) {
        if (coverage[x] >= LEAST_COVERAGE) {
          Cover(x, y, coverage[x]);
        }
      }
    }
  }

 private:
  void Cover(LONG x, LONG y, int coverage) const {
    if (target.raster.format == PixelFormat::ARGB8888) {
      std::uint32_t& place = target.raster.GetRow<std::uint32_t>(y)[x];
      place = coverage == SizedFont::FULL_COVERAGE ? pixel : Blend(place, argb, coverage);
    } else {
      std::uint16_t& place = target.raster.GetRow<std::uint16_t>(y)[x];
      place = coverage == SizedFont::FULL_COVERAGE
                  ? static_cast<std::uint16_t>(pixel)
                  : Rgb555FromArgb(Blend(ArgbFrom555(place), argb, coverage));
    }
  }

  const Target& target;
  const std::uint32_t pixel;
  /// Colour of the pixel as the target shows it.
  const std::uint32_t argb;
};

/// Draws a line of text whose cell's upper left corner is at (x, y), turned around that corner.
void DrawLine(const GlyphPainter& painter, SizedFont& font, const Line& line, LONG x, LONG y) {
  const double cosine = std::cos(font.GetAngle());
  const double sine = std::sin(font.GetAngle());
  const LONG originX = static_cast<LONG>(x + font.GetAscent() * sine);
  const LONG originY = static_cast<LONG>(y + font.GetAscent() * cosine);
  int position = 0;
  for (const char32_t character : line) {
    const Glyph& glyph = font.GetGlyph(character);
    painter.Paint(glyph, originX + static_cast<LONG>(position * cosine) + glyph.left,
                  originY - static_cast<LONG>(position * sine) - glyph.top);
    position += font.GetAngle() == 0 ? glyph.advance : glyph.width;
  }
}

void DrawFineLine(fine::Twin& twin, SizedFont& font, const Line& line, POINT corner,
                  const DeviceContext& context) {
  const int width = WidthOf(font, line);
  if (context.backgroundMode == OPAQUE) {
    twin.Fill({corner.x, corner.y, corner.x + width, corner.y + font.GetLineHeight()},
              ArgbFromColor(BACKGROUND_COLOR));
  }
  const POINT origin = {corner.x + static_cast<LONG>(font.GetAscent() * std::sin(font.GetAngle())),
                        corner.y + static_cast<LONG>(font.GetAscent() * std::cos(font.GetAngle()))};
  font.GetTypeface().Draw(twin, {line, origin, width, ArgbFromColor(context.textColor)});
}

int Measure(SizedFont& font, const std::vector<Line>& lines, RECT& rect) {
  int width = 0;
  for (const Line& line : lines) {
    width = std::max(width, WidthOf(font, line));
  }
  const int height = static_cast<int>(lines.size()) * font.GetLineHeight();
  rect.right = rect.left + width;
  rect.bottom = rect.top + height;
  return lines.empty() ? font.GetLineHeight() : height;
}

int Draw(DeviceContext& context, SizedFont& font, const std::vector<Line>& lines, const RECT& rect,
         UINT format) {
  Target target = context.GetDrawingTarget();
  if ((format & DT_NOCLIP) == 0) {
    target.clip = Intersect(target.clip, rect);
  }
  const GlyphPainter painter(target, context.textColor);
  const std::uint32_t background = target.raster.PixelFrom(BACKGROUND_COLOR);
  fine::Twin* twin = TwinOf(context);
  if (twin != nullptr) {
    twin->SetClip(target.clip);
  }
  LONG y = rect.top;
  for (const Line& line : lines) {
    if (context.backgroundMode == OPAQUE) {
      target.Fill({rect.left, y, rect.left + WidthOf(font, line), y + font.GetLineHeight()},
                  background);
    }
    DrawLine(painter, font, line, rect.left, y);
    if (twin != nullptr) {
      DrawFineLine(*twin, font, line, {rect.left, y}, context);
    }
    y += font.GetLineHeight();
  }
  return lines.empty() ? font.GetLineHeight()
                       : static_cast<int>(lines.size()) * font.GetLineHeight();
}

}  // namespace

extern "C" {

/// The background of turned opaque text is that of level text; the engine draws no such text.
int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format) {
  return Guarded<int>(0, [&] {
    const bool isDrawing = (format & DT_CALCRECT) == 0;
    const UsedContext context(
        dc, isDrawing ? UsedContext::Purpose::DRAWING : UsedContext::Purpose::STATE);
    if (!context || text == nullptr || rect == nullptr) {
      return 0;
    }
    const std::u16string_view whole =
        length < 0 ? std::u16string_view(text)
                   : std::u16string_view(text, static_cast<std::size_t>(length));
    const std::vector<Line> lines = SplitLines(
        whole, (format & DT_NOPREFIX) != 0 ? Ampersand::IS_CHARACTER : Ampersand::MARKS_SHORTCUT);
    const std::lock_guard lock(FontLock());
    SizedFont& font = SizedFontOf(*context->font);
    return isDrawing ? Draw(*context, font, lines, *rect, format) : Measure(font, lines, *rect);
  });
}

}  // extern "C"

}  // namespace handheld::gdi
