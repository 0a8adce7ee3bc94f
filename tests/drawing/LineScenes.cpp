// Thin, wide and dashed lines.

#include <array>
#include <vector>

#include "Scene.h"

namespace drawing {

namespace {

constexpr COLORREF GRAY = RGB(128, 128, 128);

POINT PointIn(Random& random, int low, int right, int bottom) {
  const int x = random.In(low, right);
  const int y = random.In(low, bottom);
  return {x, y};
}

void Line(HDC dc, POINT from, POINT to) {
  MoveToEx(dc, from.x, from.y, nullptr);
  LineTo(dc, to.x, to.y);
}

void DrawThin(Scene& scene) {
  const Paper paper(scene.GetKind(), 64, 48);
  paper.Fill(WHITE);
  const InUse pen(paper.GetDC(),
                  CreatePen(PS_SOLID, scene.index % 4 == 0 ? 0 : 1, scene.random.Color()));
  const int margin = scene.index % 5 == 0 ? 20 : 0;
  for (int line = 0; line < 4; ++line) {
    const POINT from = PointIn(scene.random, -margin, 63 + margin, 47 + margin);
    Line(paper.GetDC(), from, PointIn(scene.random, -margin, 63 + margin, 47 + margin));
  }
  scene.Keep(paper);
}

constexpr int REACH = 9;
constexpr int DIRECTIONS = (2 * REACH + 1) * (2 * REACH + 1);

/// A line from the middle to every place around it.
void DrawDirection(Scene& scene, int penWidth) {
  const Paper paper(Paper::BOTTOM_UP_16, 34, 34);
  paper.Fill(WHITE);
  const InUse pen(paper.GetDC(), CreatePen(PS_SOLID, penWidth, RGB(0, 0, 0)));
  const int direction = scene.index % DIRECTIONS;
  const POINT middle = {17, 17};
  Line(paper.GetDC(), middle,
       {middle.x + direction % (2 * REACH + 1) - REACH,
        middle.y + direction / (2 * REACH + 1) - REACH});
  scene.Keep(paper);
}

void DrawThinDirection(Scene& scene) {
  DrawDirection(scene, 1);
}

constexpr std::array PEN_WIDTHS = {2, 3, 4, 5, 6, 7};

void DrawWideDirection(Scene& scene) {
  DrawDirection(scene, PEN_WIDTHS[static_cast<std::size_t>(scene.index / DIRECTIONS)]);
}

/// Lines whose ends lie far outside of the picture.
void DrawFar(Scene& scene) {
  const Paper paper(Paper::BOTTOM_UP_16, 64, 48);
  paper.Fill(WHITE);
  const InUse pen(paper.GetDC(), CreatePen(PS_SOLID, 1, RGB(0, 0, 0)));
  const int reach = scene.index % 2 == 0 ? 500 : 20000;
  for (int line = 0; line < 8; ++line) {
    const POINT from = PointIn(scene.random, -reach, reach, reach);
    const POINT through = PointIn(scene.random, 0, 63, 47);
    Line(paper.GetDC(), from, through);
    const POINT to = PointIn(scene.random, -reach, reach, reach);
    LineTo(paper.GetDC(), to.x, to.y);
  }
  scene.Keep(paper);
}

void DrawWide(Scene& scene) {
  const Paper paper(scene.GetKind(), 64, 48);
  paper.Fill(WHITE);
  const int width = scene.random.In(2, 9);
  const InUse pen(paper.GetDC(), CreatePen(PS_SOLID, width, scene.random.Color()));
  const POINT from = PointIn(scene.random, 5, 58, 42);
  Line(paper.GetDC(), from, PointIn(scene.random, 5, 58, 42));
  scene.Keep(paper);
}

void DrawPolyline(Scene& scene) {
  constexpr std::array WIDTHS = {1, 2, 3, 5, 2, 7};
  const Paper paper(scene.GetKind(), 64, 48);
  paper.Fill(WHITE);
  const int width = WIDTHS[static_cast<std::size_t>(scene.index) % WIDTHS.size()];
  const InUse pen(paper.GetDC(), CreatePen(PS_SOLID, width, scene.random.Color()));
  std::vector<POINT> points;
  const int count = scene.random.In(2, 12);
  for (int i = 0; i < count; ++i) {
    const bool repeats = i > 0 && scene.random.In(0, 5) == 0;
    points.push_back(repeats ? points.back() : PointIn(scene.random, 4, 59, 43));
  }
  if (scene.index % 7 == 0)
    points.back() = points.front();
  scene.Note(Polyline(paper.GetDC(), points.data(), count));
  scene.Keep(paper);
}

void DrawFarPolyline(Scene& scene) {
  const Paper paper(Paper::BOTTOM_UP_16, 64, 48);
  paper.Fill(WHITE);
  const InUse pen(paper.GetDC(), CreatePen(PS_SOLID, 1 + scene.index % 4, scene.random.Color()));
  const int reach = scene.index % 2 == 0 ? 60 : 2000;
  std::vector<POINT> points;
  const int count = scene.random.In(2, 40);
  for (int i = 0; i < count; ++i)
    points.push_back(PointIn(scene.random, -reach, reach, reach));
  scene.Note(Polyline(paper.GetDC(), points.data(), count));
  scene.Keep(paper);
}

/// A curve with a value for every column.
void DrawChart(Scene& scene) {
  const Paper paper(Paper::BOTTOM_UP_16, 200, 100);
  paper.Fill(RGB(0, 0, 0));
  const InUse pen(paper.GetDC(), CreatePen(PS_SOLID, 1 + scene.index % 3, scene.random.Color()));
  std::vector<POINT> points;
  for (int x = 0; x < 200; ++x) {
    points.push_back({x, scene.random.In(10, 90)});
    if (scene.random.Flip())
      points.push_back({x, scene.random.In(10, 90)});
  }
  scene.Note(Polyline(paper.GetDC(), points.data(), static_cast<int>(points.size())));
  scene.Keep(paper);
}

void DrawDashed(Scene& scene) {
  const Paper paper(scene.GetKind(), 100, 80);
  paper.Fill(GRAY);
  const InUse pen(paper.GetDC(),
                  CreatePen(PS_DASH, scene.index % 5 == 4 ? 3 : 1, scene.random.Color()));
  if (scene.index % 2 != 0)
    SetBkMode(paper.GetDC(), TRANSPARENT);
  const POINT start = PointIn(scene.random, -30, 130, 110);
  MoveToEx(paper.GetDC(), start.x, start.y, nullptr);
  for (int line = 0; line <= scene.index % 4; ++line) {
    const POINT to = PointIn(scene.random, 0, 99, 79);
    // Now and then a single line, upright or level.
    if (scene.index % 3 == 0)
      MoveToEx(paper.GetDC(), scene.random.In(0, 99), to.y, nullptr);
    if (scene.index % 9 == 1)
      MoveToEx(paper.GetDC(), to.x, scene.random.In(0, 79), nullptr);
    LineTo(paper.GetDC(), to.x, to.y);
  }
  scene.Keep(paper);
}

}  // namespace

std::vector<Family> LineFamilies() {
  return {
      {"thin", 300, &DrawThin},
      {"thin-direction", DIRECTIONS, &DrawThinDirection},
      {"wide-direction", DIRECTIONS * static_cast<int>(PEN_WIDTHS.size()), &DrawWideDirection},
      {"far", 200, &DrawFar},
      {"wide", 400, &DrawWide},
      {"polyline", 400, &DrawPolyline},
      {"far-polyline", 200, &DrawFarPolyline},
      {"chart", 100, &DrawChart},
      {"dashed", 200, &DrawDashed},
  };
}

}  // namespace drawing
