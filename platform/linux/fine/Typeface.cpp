#include "fine/Typeface.h"

#include <cairo-ft.h>

#include <cmath>
#include <map>
#include <vector>

namespace handheld::fine {

namespace {

FT_Library FineLibrary() {
  static const FT_Library library = [] {
    FT_Library made = nullptr;
    FT_Init_FreeType(&made);
    return made;
  }();
  return library;
}

/// cairo keeps faces in use for a while after their last owner is gone.
void TieToFace(cairo_font_face_t* font, FT_Face face) {
  static const cairo_user_data_key_t key = {};
  cairo_font_face_set_user_data(font, &key, face,
                                [](void* tied) { FT_Done_Face(static_cast<FT_Face>(tied)); });
}

}  // namespace

struct Typeface::Letter {
  FT_UInt index;
  /// Logical pixels to the next letter.
  double advance;
};

struct Typeface::Parts {
  struct FontDeleter {
    void operator()(cairo_font_face_t* font) const { cairo_font_face_destroy(font); }
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
  };

  /// Owned by `font`.
  FT_Face face = nullptr;
  std::unique_ptr<cairo_font_face_t, FontDeleter> font;
  std::unique_ptr<cairo_scaled_font_t, FontDeleter> scaled;
  double scale = 0;
  std::map<char32_t, Letter> letters;
};

Typeface::Typeface(const std::string& path, long index, int em, double angle)
    : em(em), angle(angle) {
  FT_Face face = nullptr;
  if (path.empty() || FT_New_Face(FineLibrary(), path.c_str(), index, &face) != 0) {
    return;
  }
  parts = std::make_unique<Parts>();
  parts->face = face;
  parts->font.reset(
      cairo_ft_font_face_create_for_ft_face(face, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP));
  TieToFace(parts->font.get(), face);
}

Typeface::~Typeface() = default;

void Typeface::Scale(double newScale) {
  if (parts->scale == newScale) {
    return;
  }
  const std::unique_ptr<cairo_font_options_t, Parts::FontDeleter> options(
      cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  cairo_matrix_t size;
  cairo_matrix_init_rotate(&size, -angle);
  cairo_matrix_scale(&size, em * newScale, em * newScale);
  cairo_matrix_t identity;
  cairo_matrix_init_identity(&identity);
  parts->scaled.reset(cairo_scaled_font_create(parts->font.get(), &size, &identity, options.get()));
  parts->scale = newScale;
}

const Typeface::Letter& Typeface::GetLetter(char32_t character) {
  if (const auto found = parts->letters.find(character); found != parts->letters.end()) {
    return found->second;
  }
  const FT_Face face = parts->face;
  Letter letter = {FT_Get_Char_Index(face, character), 0};
  if (face->units_per_EM != 0 && FT_Load_Glyph(face, letter.index, FT_LOAD_NO_SCALE) == 0) {
    letter.advance =
        static_cast<double>(face->glyph->metrics.horiAdvance) * em / face->units_per_EM;
  }
  return parts->letters.emplace(character, letter).first->second;
}

void Typeface::Draw(Twin& twin, const TextLook& look) {
  if (parts == nullptr || look.text.empty()) {
    return;
  }
  Scale(twin.GetScale());
  double natural = 0;
  for (const char32_t character : look.text) {
    natural += GetLetter(character).advance;
  }
  const double gap = (look.width - natural) / static_cast<double>(look.text.size());
  double position = gap / 2;
  const double x = look.origin.x * twin.GetScale();
  const double y = std::round(look.origin.y * twin.GetScale());
  std::vector<cairo_glyph_t> glyphs;
  glyphs.reserve(look.text.size());
  for (const char32_t character : look.text) {
    const Letter& letter = GetLetter(character);
    glyphs.push_back({letter.index, x + position * twin.GetScale() * std::cos(angle),
                      y - position * twin.GetScale() * std::sin(angle)});
    position += letter.advance + gap;
  }
  cairo_t* context = twin.BeginShape(look.rgb);
  cairo_set_scaled_font(context, parts->scaled.get());
  cairo_show_glyphs(context, glyphs.data(), static_cast<int>(glyphs.size()));
}

}  // namespace handheld::fine
