#include "gdi/SizedFont.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <numbers>
#include <tuple>
#include <utility>

#include "gdi/Objects.h"
#include "gdi/RegisteredFonts.h"

#include FT_OUTLINE_H
#include FT_TRIGONOMETRY_H
#include FT_TRUETYPE_TABLES_H

namespace handheld::gdi {

namespace {

/// Cell height for a requested height of 0.
constexpr LONG DEFAULT_HEIGHT = 16;
/// Greater heights, of cells and em squares, become this one: a glyph takes a byte a pixel.
constexpr LONG MAX_HEIGHT = 1000;
/// Larger glyphs, which only damaged fonts have, are not drawn.
constexpr std::int64_t MAX_GLYPH_PIXELS = 4 * MAX_HEIGHT * MAX_HEIGHT;
/// Fonts kept, and bytes of their glyphs. A view uses about a dozen fonts and 100 KB.
constexpr std::size_t MAX_KEPT_FONTS = 128;
constexpr std::size_t MAX_KEPT_BYTES = 32 << 20;

FT_Library Library() {
  static const FT_Library library = [] {
    FT_Library made = nullptr;
    FT_Init_FreeType(&made);
    return made;
  }();
  return library;
}

/// a * b / c, rounded to the nearest.
LONG MulDiv(LONG a, LONG b, LONG c) {
  return static_cast<LONG>((2 * static_cast<std::int64_t>(a) * b + c) / (2 * c));
}

/// Ascent and descent of lines in font units: the Windows values of the font, or the general ones
/// where it has none.
struct LineMetrics {
  LONG ascent;
  LONG descent;

  explicit LineMetrics(FT_Face face) : ascent(face->ascender), descent(-face->descender) {
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 != nullptr && os2->usWinAscent + os2->usWinDescent != 0) {
      ascent = os2->usWinAscent;
      descent = os2->usWinDescent;
    }
  }

  /// Above 0, also for a damaged font.
  LONG GetTotal() const { return std::max<LONG>(ascent + descent, 1); }
};

/// Units of an outline in a pixel.
constexpr FT_Pos PIXEL = 64;

int RoundedPixels(FT_Pos position) {
  return static_cast<int>((position + PIXEL / 2) >> 6);
}

int RoundedDownPixels(FT_Pos position) {
  return static_cast<int>(position >> 6);
}

int RoundedUpPixels(FT_Pos position) {
  return RoundedDownPixels(position + PIXEL - 1);
}

}  // namespace

std::mutex& FontLock() {
  static std::mutex& lock = *new std::mutex;
  return lock;
}

SizedFont::SizedFont(FontFile fontFile, LONG height, LONG tenthsOfDegrees)
    : file(std::move(fontFile)), angle(tenthsOfDegrees * std::numbers::pi / 1800) {
  if (file.path.empty() || FT_New_Face(Library(), file.path.c_str(), file.index, &face) != 0) {
    return;
  }
  if (face->units_per_EM == 0) {
    FT_Done_Face(std::exchange(face, nullptr));
    return;
  }
  SetSize(height == 0 ? DEFAULT_HEIGHT : std::clamp(height, -MAX_HEIGHT, MAX_HEIGHT));
  isSmooth = WantsSmoothGlyphs();
  if (tenthsOfDegrees % 3600 != 0) {
    FT_Vector direction;
    FT_Vector_Unit(&direction, FT_DivFix(tenthsOfDegrees, 10));
    rotation = FT_Matrix{direction.x, -direction.y, direction.y, direction.x};
  }
}

SizedFont::~SizedFont() {
  FT_Done_Face(face);
}

/// Chooses the largest em square whose cell does not exceed the height.
void SizedFont::SetSize(LONG height) {
  const LineMetrics metrics(face);
  LONG pixelsPerEm = std::abs(height);
  if (height > 0) {
    pixelsPerEm = MulDiv(face->units_per_EM, height, metrics.GetTotal());
    if (MulDiv(pixelsPerEm, metrics.GetTotal(), face->units_per_EM) > height) {
      --pixelsPerEm;
    }
    pixelsPerEm = std::max<LONG>(pixelsPerEm, 1);
  }
  FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(pixelsPerEm));
  ascent = MulDiv(metrics.ascent, pixelsPerEm, face->units_per_EM);
  descent = MulDiv(metrics.descent, pixelsPerEm, face->units_per_EM);
}

/// The "gasp" table of a font names the sizes whose hinted outlines look best without smoothing.
bool SizedFont::WantsSmoothGlyphs() const {
  constexpr FT_ULong GASP = FT_MAKE_TAG('g', 'a', 's', 'p');
  constexpr unsigned SMOOTH = 2;
  FT_ULong length = 0;
  if (FT_Load_Sfnt_Table(face, GASP, 0, nullptr, &length) != 0 || length < 4) {
    return true;
  }
  std::vector<FT_Byte> table(length);
  FT_Load_Sfnt_Table(face, GASP, 0, table.data(), &length);
  const auto word = [&](std::size_t at) {
    return static_cast<unsigned>(table[at] << 8 | table[at + 1]);
  };
  const std::size_t ranges = std::min<std::size_t>(word(2), (length - 4) / 4);
  for (std::size_t range = 0; range < ranges; ++range) {
    if (face->size->metrics.y_ppem <= word(4 + 4 * range)) {
      return (word(6 + 4 * range) & SMOOTH) != 0;
    }
  }
  return true;
}

fine::Typeface& SizedFont::GetTypeface() {
  if (typeface == nullptr) {
    const bool isReadable = face != nullptr;
    typeface = std::make_unique<fine::Typeface>(isReadable ? file.path : std::string(), file.index,
                                                isReadable ? face->size->metrics.y_ppem : 0, angle);
  }
  return *typeface;
}

const Glyph& SizedFont::GetGlyph(char32_t character) {
  if (const auto found = glyphs.find(character); found != glyphs.end()) {
    return found->second;
  }
  const Glyph& glyph = glyphs.emplace(character, Load(character)).first->second;
  bytes += glyph.coverage.size();
  return glyph;
}

Glyph SizedFont::Load(char32_t character) {
  Glyph glyph;
  if (face == nullptr) {
    return glyph;
  }
  const FT_UInt index = FT_Get_Char_Index(face, character);
  if (FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP) != 0) {
    return glyph;
  }
  glyph.width = RoundedPixels(face->glyph->metrics.horiAdvance);
  if (!isSmooth && FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_MONO) != 0) {
    return glyph;
  }
  glyph.advance = RoundedPixels(face->glyph->metrics.horiAdvance);
  Render(glyph);
  return glyph;
}

/// Pixels that the outline touches, cut off at the top and bottom of the line.
SizedFont::PixelBox SizedFont::GetUprightBox() const {
  FT_BBox box;
  FT_Outline_Get_CBox(&face->glyph->outline, &box);
  return {RoundedDownPixels(box.xMin), std::max(RoundedDownPixels(box.yMin), -descent),
          RoundedUpPixels(box.xMax), std::min(RoundedUpPixels(box.yMax), ascent)};
}

/// Pixels that the turned box touches.
SizedFont::PixelBox SizedFont::GetTurned(const PixelBox& box) const {
  PixelBox turned = {INT_MAX, INT_MAX, INT_MIN, INT_MIN};
  for (const int x : {box.left, box.right}) {
    for (const int y : {box.bottom, box.top}) {
      FT_Vector corner = {x * PIXEL, y * PIXEL};
      FT_Vector_Transform(&corner, &*rotation);
      turned.left = std::min(turned.left, RoundedDownPixels(corner.x));
      turned.bottom = std::min(turned.bottom, RoundedDownPixels(corner.y));
      turned.right = std::max(turned.right, RoundedUpPixels(corner.x));
      turned.top = std::max(turned.top, RoundedUpPixels(corner.y));
    }
  }
  return turned;
}

/// The box is computed here: without smoothing FreeType's own box leaves out pixels that only thin
/// strokes touch. The outline is turned here: turned by the face it would not be hinted.
void SizedFont::Render(Glyph& glyph) const {
  FT_Outline& outline = face->glyph->outline;
  PixelBox box = GetUprightBox();
  if (rotation) {
    box = GetTurned(box);
    FT_Outline_Transform(&outline, &*rotation);
  }
  FT_Outline_Translate(&outline, -box.left * PIXEL, -box.bottom * PIXEL);
  const std::int64_t columns = std::int64_t{box.right} - box.left;
  const std::int64_t rows = std::max<std::int64_t>(std::int64_t{box.top} - box.bottom, 0);
  if (columns * rows > MAX_GLYPH_PIXELS) {
    return;
  }
  glyph.left = box.left;
  glyph.top = box.top;
  glyph.columns = static_cast<int>(columns);
  glyph.rows = static_cast<int>(rows);

  FT_Bitmap bitmap = {};
  bitmap.width = static_cast<unsigned>(glyph.columns);
  bitmap.rows = static_cast<unsigned>(glyph.rows);
  bitmap.pitch = isSmooth ? glyph.columns : (glyph.columns + 7) / 8;
  bitmap.pixel_mode = isSmooth ? FT_PIXEL_MODE_GRAY : FT_PIXEL_MODE_MONO;
  bitmap.num_grays = 256;
  std::vector<unsigned char> pixels(static_cast<std::size_t>(bitmap.pitch) * bitmap.rows);
  bitmap.buffer = pixels.data();
  FT_Outline_Get_Bitmap(Library(), &outline, &bitmap);
  TakeCoverage(glyph, bitmap);
}

void SizedFont::TakeCoverage(Glyph& glyph, const FT_Bitmap& bitmap) {
  glyph.coverage.reserve(static_cast<std::size_t>(glyph.columns) *
                         static_cast<std::size_t>(glyph.rows));
  for (int y = 0; y < glyph.rows; ++y) {
    const unsigned char* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
    for (int x = 0; x < glyph.columns; ++x) {
      const int value = bitmap.pixel_mode == FT_PIXEL_MODE_MONO
                            ? (row[x / 8] >> (7 - x % 8) & 1) * FULL_COVERAGE
                            : row[x] * (FULL_COVERAGE + 1) / 256;
      glyph.coverage.push_back(static_cast<std::uint8_t>(value));
    }
  }
}

namespace {

/// Greater weights choose the bold face.
constexpr LONG HEAVIEST_REGULAR = 550;

/// One SizedFont serves all equal descriptions.
std::shared_ptr<SizedFont> Find(const LOGFONTW& description) {
  using Key = std::tuple<FontFile, LONG, LONG>;
  static std::map<Key, std::shared_ptr<SizedFont>>& fonts =
      *new std::map<Key, std::shared_ptr<SizedFont>>;
  const std::u16string name(
      description.lfFaceName,
      std::find(description.lfFaceName, description.lfFaceName + LF_FACESIZE, u'\0'));
  const FontWeight weight =
      description.lfWeight > HEAVIEST_REGULAR ? FontWeight::BOLD : FontWeight::REGULAR;
  const Key key(FindFontFile(name, weight), description.lfHeight, description.lfEscapement);
  if (const auto found = fonts.find(key); found != fonts.end()) {
    return found->second;
  }
  std::size_t bytes = 0;
  for (const auto& [each, font] : fonts) {
    bytes += font->GetBytes();
  }
  if (fonts.size() >= MAX_KEPT_FONTS || bytes > MAX_KEPT_BYTES) {
    fonts.clear();
  }
  auto font =
      std::make_shared<SizedFont>(std::get<0>(key), description.lfHeight, description.lfEscapement);
  fonts.emplace(key, font);
  return font;
}

}  // namespace

SizedFont& SizedFontOf(const Font& font) {
  const std::uint64_t version = RegisteredFontsVersion();
  if (font.sized == nullptr || font.fontsVersion != version) {
    font.sized = Find(font.description);
    font.fontsVersion = version;
  }
  return *font.sized;
}

}  // namespace handheld::gdi
