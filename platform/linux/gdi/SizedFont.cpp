#include "SizedFont.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <numbers>
#include <tuple>

#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

namespace handheld::gdi {

namespace {

/// Cell height of fonts that ask for none.
constexpr LONG DEFAULT_HEIGHT = 16;
/// Kept fonts; a view uses about a dozen.
constexpr std::size_t MAX_KEPT_FONTS = 128;

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

/// Heights that lines are set by: those of Windows, or the general ones where a font has no such.
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

  LONG Total() const { return ascent + descent; }
};

int RoundedPixels(FT_Pos position) {
  return static_cast<int>((position + 32) >> 6);
}

}  // namespace

std::mutex& FontLock() {
  static std::mutex& lock = *new std::mutex;
  return lock;
}

SizedFont::SizedFont(const FontFile& file, LONG height, LONG tenthsOfDegrees)
    : angle(tenthsOfDegrees * std::numbers::pi / 1800) {
  if (file.path.empty() || FT_New_Face(Library(), file.path.c_str(), file.index, &face) != 0) {
    return;
  }
  SetSize(height == 0 ? DEFAULT_HEIGHT : height);
  isSmooth = WantsSmoothGlyphs();
  if (tenthsOfDegrees % 3600 != 0) {
    const auto cosine = static_cast<FT_Fixed>(std::lround(std::cos(angle) * 0x10000));
    const auto sine = static_cast<FT_Fixed>(std::lround(std::sin(angle) * 0x10000));
    FT_Matrix rotation = {cosine, -sine, sine, cosine};
    FT_Set_Transform(face, &rotation, nullptr);
  }
}

SizedFont::~SizedFont() {
  FT_Done_Face(face);
}

/// The em square is chosen so that the cell comes nearest to the height without exceeding it by rounding.
void SizedFont::SetSize(LONG height) {
  const LineMetrics metrics(face);
  LONG pixelsPerEm = std::labs(height);
  if (height > 0) {
    pixelsPerEm = MulDiv(face->units_per_EM, height, metrics.Total());
    if (MulDiv(pixelsPerEm, metrics.Total(), face->units_per_EM) > height)
      --pixelsPerEm;
    pixelsPerEm = std::max<LONG>(pixelsPerEm, 1);
  }
  FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(pixelsPerEm));
  ascent = MulDiv(metrics.ascent, pixelsPerEm, face->units_per_EM);
  descent = MulDiv(metrics.descent, pixelsPerEm, face->units_per_EM);
}

/// Fonts say in their "gasp" table below which size their hinted outlines look best without smoothing.
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

const Glyph& SizedFont::GlyphOf(char32_t character) {
  const auto found = glyphs.find(character);
  return found != glyphs.end() ? found->second
                               : glyphs.emplace(character, Load(character)).first->second;
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
  if (FT_Render_Glyph(face->glyph, isSmooth ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO) == 0) {
    SetBitmap(glyph);
  }
  return glyph;
}

void SizedFont::SetBitmap(Glyph& glyph) const {
  const FT_Bitmap& bitmap = face->glyph->bitmap;
  glyph.left = face->glyph->bitmap_left;
  glyph.top = face->glyph->bitmap_top;
  glyph.columns = static_cast<int>(bitmap.width);
  glyph.rows = static_cast<int>(bitmap.rows);
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

std::shared_ptr<SizedFont> FontFor(const LOGFONTW& description) {
  using Key = std::tuple<FontFile, LONG, LONG>;
  static std::map<Key, std::shared_ptr<SizedFont>>& fonts =
      *new std::map<Key, std::shared_ptr<SizedFont>>;
  const std::u16string name(
      description.lfFaceName,
      std::find(description.lfFaceName, description.lfFaceName + LF_FACESIZE, u'\0'));
  const Key key(FindFontFile(name), description.lfHeight, description.lfEscapement);
  if (const auto found = fonts.find(key); found != fonts.end()) {
    return found->second;
  }
  if (fonts.size() >= MAX_KEPT_FONTS) {
    fonts.clear();
  }
  const auto font =
      std::make_shared<SizedFont>(std::get<0>(key), description.lfHeight, description.lfEscapement);
  fonts.emplace(key, font);
  return font;
}

}  // namespace handheld::gdi
