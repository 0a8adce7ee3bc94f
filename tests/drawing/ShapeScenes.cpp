// Circles, rectangles, single pixels and clipping.

#include <algorithm>
#include <cstdlib>

#include "Scene.h"

namespace drawing {

namespace {

RECT RectIn(Random& random, int low, int high) {
  const int left = random.In(low, high);
  const int top = random.In(low, high);
  const int right = random.In(low, high);
  const int bottom = random.In(low, high);
  return {left, top, right, bottom};
}

HPEN PenOf(Scene& scene, int width) {
  const int style = scene.index % 9 == 8 ? PS_NULL : PS_SOLID;
  return CreatePen(style, width, scene.random.Color());
}

void DrawCircle(Scene& scene) {
  const Paper paper(Paper::BOTTOM_UP_16, 60, 60);
  paper.Fill(WHITE);
  const InUse pen(paper.GetDC(), PenOf(scene, 1 + scene.index % 6));
  const InUse brush(paper.GetDC(), CreateSolidBrush(scene.random.Color()));
  const int radius = scene.index / 12;
  scene.Note(Ellipse(paper.GetDC(), 30 - radius, 30 - radius, 30 + radius, 30 + radius));
  scene.Keep(paper);
}

void DrawEllipse(Scene& scene) {
  const Paper paper(scene.GetKind(), 60, 60);
  paper.Fill(WHITE);
  const InUse pen(paper.GetDC(), PenOf(scene, scene.random.In(0, 7)));
  const InUse brush(paper.GetDC(), CreateSolidBrush(scene.random.Color()));
  const RECT rect = RectIn(scene.random, -5, 65);
  // In narrower ellipses no curve reaches the rows at the ends: their pixels are arbitrary.
  const int width = static_cast<int>(std::abs(rect.right - rect.left));
  const int mostHeight = std::max(2 * (width - 1) * (width - 1) - 1, 0);
  const LONG bottom = std::clamp(rect.bottom, rect.top - mostHeight, rect.top + mostHeight);
  scene.Note(Ellipse(paper.GetDC(), rect.left, rect.top, rect.right, bottom));
  scene.Keep(paper);
}

void DrawRectangle(Scene& scene) {
  const Paper paper(scene.GetKind(), 60, 60);
  paper.Fill(WHITE);
  const int style = scene.index % 9 == 7 ? PS_DASH : PS_SOLID;
  const int width = scene.index % 2 == 0 ? 1 : scene.random.In(0, 7);
  const InUse pen(paper.GetDC(), CreatePen(style, width, scene.random.Color()));
  const InUse brush(paper.GetDC(), CreateSolidBrush(scene.random.Color()));
  RECT rect = RectIn(scene.random, -5, 65);
  if (scene.index % 4 == 0)
    rect.right = rect.left + scene.random.In(-3, 3);
  if (scene.index % 4 == 1)
    rect.bottom = rect.top + scene.random.In(-3, 3);
  scene.Note(Rectangle(paper.GetDC(), rect.left, rect.top, rect.right, rect.bottom));
  scene.Keep(paper);
}

void DrawRounded(Scene& scene, int corner) {
  const Paper paper(scene.GetKind(), 60, 60);
  paper.Fill(WHITE);
  const int width = scene.index % 2 == 0 ? 1 : scene.random.In(0, 7);
  const InUse pen(paper.GetDC(), PenOf(scene, width));
  const InUse brush(paper.GetDC(), CreateSolidBrush(scene.random.Color()));
  const RECT rect = RectIn(scene.random, -5, 65);
  // Corners are as high as wide, for the reason above.
  const int size = std::min({corner, static_cast<int>(std::abs(rect.right - rect.left)),
                             static_cast<int>(std::abs(rect.bottom - rect.top))});
  scene.Note(RoundRect(paper.GetDC(), rect.left, rect.top, rect.right, rect.bottom, size, size));
  scene.Keep(paper);
}

void DrawSmallCorners(Scene& scene) {
  DrawRounded(scene, 3);
}

void DrawLargeCorners(Scene& scene) {
  DrawRounded(scene, scene.random.In(0, 30));
}

void DrawPixels(Scene& scene) {
  const Paper paper(scene.GetKind(), 16, 16);
  for (int pixel = 0; pixel < 300; ++pixel) {
    const int x = scene.random.In(-1, 16);
    const int y = scene.random.In(-1, 16);
    const COLORREF color = scene.random.Next();
    scene.Note(SetPixel(paper.GetDC(), x, y, scene.index % 8 < 4 ? color & 0x00FFFFFF : color));
    scene.Note(GetPixel(paper.GetDC(), y, x));
  }
  scene.Keep(paper);
}

void DrawFilled(Scene& scene) {
  const Paper paper(scene.GetKind(), 16, 16);
  paper.Fill(scene.random.Color());
  const RECT rect = RectIn(scene.random, -3, 20);
  const HBRUSH brush = CreateSolidBrush(scene.random.Color());
  scene.Note(FillRect(paper.GetDC(), &rect, brush));
  DeleteObject(brush);
  scene.Keep(paper);
}

void DrawClipped(Scene& scene) {
  const Paper paper(scene.GetKind(), 64, 48);
  const HDC dc = paper.GetDC();
  paper.Fill(WHITE);
  const RECT visible = RectIn(scene.random, -5, 60);
  const HRGN region = CreateRectRgn(visible.left, visible.top, visible.right, visible.bottom);
  scene.Note(SelectClipRgn(dc, region));
  DeleteObject(region);
  const InUse pen(dc, CreatePen(scene.index % 5 == 0 ? PS_DASH : PS_SOLID, 1 + scene.index % 4,
                                scene.random.Color()));
  const InUse brush(dc, CreateSolidBrush(scene.random.Color()));
  for (int line = 0; line < 4; ++line) {
    const RECT ends = RectIn(scene.random, -20, 80);
    MoveToEx(dc, ends.left, ends.top, nullptr);
    LineTo(dc, ends.right, ends.bottom);
  }
  const int x = scene.random.In(0, 60);
  const int y = scene.random.In(0, 60);
  const int radius = scene.random.In(0, 40);
  scene.Note(Ellipse(dc, x - radius, y - radius, x + radius, y + radius));
  const RECT rounded = RectIn(scene.random, 0, 60);
  scene.Note(RoundRect(dc, rounded.left, rounded.top, rounded.right, rounded.bottom, 3, 3));
  scene.Note(SetPixel(dc, y, x, 0));
  if (scene.index % 3 == 0) {
    scene.Note(SelectClipRgn(dc, nullptr));
    Rectangle(dc, 1, 1, 9, 9);
  }
  scene.Keep(paper);
}

}  // namespace

std::vector<Family> ShapeFamilies() {
  return {
      {"circle", 300, &DrawCircle},
      {"ellipse", 500, &DrawEllipse},
      {"rectangle", 200, &DrawRectangle},
      {"small-corners", 200, &DrawSmallCorners},
      {"large-corners", 200, &DrawLargeCorners},
      {"pixels", 80, &DrawPixels},
      {"filled", 100, &DrawFilled},
      {"clipped", 200, &DrawClipped},
  };
}

}  // namespace drawing
