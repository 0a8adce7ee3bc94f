#include "fine/Pictures.h"

#include <algorithm>

namespace handheld::fine {

void DrawPicture(Twin& twin, const Part& to, cairo_surface_t* source, const Part& from,
                 const PictureLook& look) {
  const int left = twin.Snap(to.left);
  const int top = twin.Snap(to.top);
  const int right = twin.Snap(to.right);
  const int bottom = twin.Snap(to.bottom);
  if (left == right || top == bottom) {
    return;
  }
  cairo_matrix_t matrix;
  const double across = (from.right - from.left) / (right - left);
  const double down = (from.bottom - from.top) / (bottom - top);
  cairo_matrix_init(&matrix, across, 0, 0, down, from.left - left * across, from.top - top * down);
  cairo_t* context = twin.BeginShape(0);
  cairo_save(context);
  cairo_rectangle(context, std::min(left, right), std::min(top, bottom), std::abs(right - left),
                  std::abs(bottom - top));
  cairo_clip(context);
  cairo_set_source_surface(context, source, 0, 0);
  cairo_pattern_t* pattern = cairo_get_source(context);
  cairo_pattern_set_matrix(pattern, &matrix);
  cairo_pattern_set_filter(pattern, look.filter);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  if (look.drawing == Drawing::BLEND) {
    cairo_paint_with_alpha(context, look.alpha);
  } else {
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_paint(context);
  }
  if (look.drawing == Drawing::INVERT) {
    cairo_set_operator(context, CAIRO_OPERATOR_DIFFERENCE);
    cairo_set_source_rgb(context, 1, 1, 1);
    cairo_paint(context);
  }
  cairo_restore(context);
}

}  // namespace handheld::fine
