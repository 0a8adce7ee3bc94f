// Pictures like those of the views, drawn by cairo: what frames are measured against.
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>

namespace {

constexpr int WIDTH = 800;
constexpr int HEIGHT = 480;
constexpr double CENTRE_X = 400;
constexpr double CENTRE_Y = 240;

class Surface {
 public:
  explicit Surface(cairo_format_t format)
      : surface(cairo_image_surface_create(format, WIDTH, HEIGHT)), context(cairo_create(surface)) {
    cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
    cairo_select_font_face(context, "Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
  }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  ~Surface() {
    cairo_destroy(context);
    cairo_surface_destroy(surface);
  }

  cairo_t* Get() const { return context; }

  void Fill(double red, double green, double blue) const {
    cairo_set_source_rgb(context, red, green, blue);
    cairo_paint(context);
  }

  void DrawText(const char* text, double size, double x, double y) const {
    cairo_set_source_rgb(context, 1, 1, 1);
    cairo_set_font_size(context, size);
    cairo_move_to(context, x, y);
    cairo_show_text(context, text);
  }

  void Copy(const Surface& from) const {
    cairo_set_source_surface(context, from.surface, 0, 0);
    cairo_paint(context);
  }

 private:
  cairo_surface_t* surface;
  cairo_t* context;
};

/// A ring with a tick at every tenth of it, on a transparent ground.
void DrawScale(cairo_t* context) {
  cairo_set_source_rgb(context, 0.8, 0.8, 0.8);
  cairo_set_line_width(context, 4);
  cairo_arc(context, CENTRE_X, CENTRE_Y, 230, 0, 2 * M_PI);
  cairo_stroke(context);
  for (int tick = 0; tick < 10; ++tick) {
    const double angle = tick * M_PI / 5;
    cairo_move_to(context, CENTRE_X + 200 * std::cos(angle), CENTRE_Y + 200 * std::sin(angle));
    cairo_line_to(context, CENTRE_X + 230 * std::cos(angle), CENTRE_Y + 230 * std::sin(angle));
  }
  cairo_stroke(context);
}

void DrawNeedle(cairo_t* context, double angle) {
  const double x = std::cos(angle);
  const double y = std::sin(angle);
  cairo_set_source_rgb(context, 1, 0.2, 0.1);
  cairo_move_to(context, CENTRE_X + 190 * x, CENTRE_Y + 190 * y);
  cairo_line_to(context, CENTRE_X - 8 * y, CENTRE_Y + 8 * x);
  cairo_line_to(context, CENTRE_X + 8 * y, CENTRE_Y - 8 * x);
  cairo_fill(context);
}

/// Frames of a view: black, what `paint` draws, distance and time below it.
template <class Paint>
void DrawFrames(benchmark::State& state, const Paint& paint) {
  const Surface frame(CAIRO_FORMAT_RGB24);
  const Surface window(CAIRO_FORMAT_RGB24);
  for (auto _ : state) {
    frame.Fill(0, 0, 0);
    paint(frame);
    frame.DrawText("12.5 km", 24, 20, 460);
    frame.DrawText("10:15:30", 24, 660, 460);
    window.Copy(frame);
  }
}

void CairoDial(benchmark::State& state) {
  const Surface scale(CAIRO_FORMAT_ARGB32);
  DrawScale(scale.Get());
  double angle = 0;
  DrawFrames(state, [&](const Surface& frame) {
    frame.Copy(scale);
    DrawNeedle(frame.Get(), angle += 0.01);
    frame.DrawText("128", 60, 340, 330);
  });
}
BENCHMARK(CairoDial)->Unit(benchmark::kMillisecond);

void CairoSpeed(benchmark::State& state) {
  DrawFrames(state, [](const Surface& frame) {
    frame.DrawText("128", 280, 120, 330);
    frame.DrawText("km/h", 40, 660, 330);
  });
}
BENCHMARK(CairoSpeed)->Unit(benchmark::kMillisecond);

void CairoPresent(benchmark::State& state) {
  const Surface frame(CAIRO_FORMAT_RGB16_565);
  const Surface window(CAIRO_FORMAT_RGB24);
  for (auto _ : state) {
    window.Copy(frame);
  }
}
BENCHMARK(CairoPresent)->Unit(benchmark::kMillisecond);

}  // namespace
