// Copies, scaled and mirrored copies, and blending.

#include "Scene.h"

namespace drawing {

namespace {

/// Place and extent; a negative extent runs backwards from its start.
struct Box {
  int x;
  int y;
  int width;
  int height;
};

constexpr int WIDTH = 40;
constexpr int HEIGHT = 30;

Paper::Kind TargetKind(const Scene& scene) {
  return static_cast<Paper::Kind>(scene.index % Paper::KINDS);
}

Paper::Kind SourceKind(const Scene& scene) {
  return static_cast<Paper::Kind>(scene.index / Paper::KINDS % Paper::KINDS);
}

DWORD OperationOf(const Scene& scene) {
  return scene.index % 5 == 0 ? NOTSRCCOPY : SRCCOPY;
}

/// A target partly outside of the picture, smaller or larger than the source.
Box PlaceIn(Random& random, int mostExtent) {
  const int x = random.In(-60, WIDTH);
  const int y = random.In(-60, HEIGHT);
  const int width = random.In(1, mostExtent);
  const int height = random.In(1, mostExtent);
  return {x, y, width, height};
}

void Mirror(int& start, int& extent) {
  start += extent;
  extent = -extent;
}

void MirrorByChance(Box& box, Random& random) {
  if (random.Flip())
    Mirror(box.x, box.width);
  if (random.Flip())
    Mirror(box.y, box.height);
}

void ClipSome(const Paper& paper, Scene& scene) {
  if (scene.index % 3 != 1)
    return;
  const int left = scene.random.In(-5, 30);
  const int top = scene.random.In(-5, 20);
  const int right = scene.random.In(10, 45);
  const HRGN region = CreateRectRgn(left, top, right, scene.random.In(10, 35));
  SelectClipRgn(paper.GetDC(), region);
  DeleteObject(region);
}

BOOL Stretch(const Paper& target, const Box& to, const Paper& source, const Box& from,
             DWORD operation) {
  return StretchBlt(target.GetDC(), to.x, to.y, to.width, to.height, source.GetDC(), from.x, from.y,
                    from.width, from.height, operation);
}

BOOL Blend(const Paper& target, const Box& to, const Paper& source, const Box& from,
           const BLENDFUNCTION& how) {
  return AlphaBlend(target.GetDC(), to.x, to.y, to.width, to.height, source.GetDC(), from.x, from.y,
                    from.width, from.height, how);
}

void DrawCopy(Scene& scene) {
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(SourceKind(scene), 35, 33);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  const int margin = scene.index < 60 ? 0 : 8;
  const int x = scene.random.In(-margin, WIDTH - 1);
  const int y = scene.random.In(-margin, HEIGHT - 1);
  const int width = scene.random.In(-margin, WIDTH + 5);
  const int height = scene.random.In(-margin, WIDTH);
  const int sourceX = scene.random.In(-margin, 34);
  const int sourceY = scene.random.In(-margin, 32);
  scene.Note(BitBlt(target.GetDC(), x, y, width, height, source.GetDC(), sourceX, sourceY,
                    OperationOf(scene)));
  scene.Keep(target);
}

/// A whole picture scaled to any size, as pictures and frames are drawn.
void DrawWhole(Scene& scene) {
  const int width = scene.random.In(1, 40);
  const int height = scene.random.In(1, 40);
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(SourceKind(scene), width, height);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  ClipSome(target, scene);
  Box to = PlaceIn(scene.random, scene.index % 2 == 0 ? 90 : 20);
  MirrorByChance(to, scene.random);
  scene.Note(Stretch(target, to, source, {0, 0, width, height}, OperationOf(scene)));
  scene.Keep(target);
}

void DrawPart(Scene& scene) {
  constexpr int SIZE = 40;
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(SourceKind(scene), SIZE, SIZE);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  ClipSome(target, scene);
  Box to = PlaceIn(scene.random, scene.index % 2 == 0 ? 90 : 20);
  MirrorByChance(to, scene.random);
  const int x = scene.random.In(0, 20);
  const int y = scene.random.In(0, 20);
  // One less than the length: a mirrored part includes the pixel at its start.
  const int width = scene.random.In(1, SIZE - 1 - x);
  const int height = scene.random.In(1, SIZE - 1 - y);
  Box from = {x, y, width, height};
  MirrorByChance(from, scene.random);
  scene.Note(Stretch(target, to, source, from, OperationOf(scene)));
  scene.Keep(target);
}

constexpr int MOST_LENGTH = 20;

/// Every length scaled to every other. Each source pixel has another bit that is 0.
void DrawLength(Scene& scene) {
  const Paper target(Paper::TOP_DOWN_32, MOST_LENGTH, 2);
  const Paper source(Paper::TOP_DOWN_32, MOST_LENGTH, 1);
  for (int x = 0; x < MOST_LENGTH; ++x)
    SetPixel(source.GetDC(), x, 0, ~(COLORREF{1} << x) & 0x00FFFFFF);
  target.Fill(RGB(255, 255, 255));
  const int from = 1 + scene.index % MOST_LENGTH;
  const int to = 1 + scene.index / MOST_LENGTH;
  scene.Note(Stretch(target, {0, 0, to, 1}, source, {0, 0, from, 1}, SRCCOPY));
  scene.Note(Stretch(target, {to, 1, -to, 1}, source, {0, 0, from, 1}, SRCCOPY));
  scene.Keep(target);
}

/// A picture copied onto itself.
void DrawOverlap(Scene& scene) {
  const Paper paper(TargetKind(scene), WIDTH, HEIGHT);
  paper.FillWithNoise(scene.random);
  const int x = scene.random.In(0, 10);
  const int y = scene.random.In(0, 10);
  const int sourceX = scene.random.In(0, 10);
  const int sourceY = scene.random.In(0, 10);
  if (scene.index % 3 == 0)
    scene.Note(Stretch(paper, {x, y, 20, 15}, paper, {sourceX, sourceY, 20, 15}, SRCCOPY));
  else if (scene.index % 3 == 1)
    scene.Note(Stretch(paper, {x, y, 20, 15}, paper, {sourceX, sourceY, 13, 18}, SRCCOPY));
  else
    scene.Note(Stretch(paper, {WIDTH, 0, -WIDTH, HEIGHT}, paper, {0, 0, WIDTH, HEIGHT}, SRCCOPY));
  scene.Keep(paper);
}

BLENDFUNCTION HowToBlend(Scene& scene) {
  const BYTE byChance = scene.random.Byte();
  const BYTE alpha = scene.index % 3 == 0 ? BYTE{255} : byChance;
  return {AC_SRC_OVER, 0, alpha, static_cast<BYTE>(scene.index % 11 == 0 ? 0 : AC_SRC_ALPHA)};
}

/// Blending without scaling, now and then with colours brighter than their alpha allows.
void DrawBlended(Scene& scene) {
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(scene.index % 5 == 0 ? Paper::BOTTOM_UP_32 : Paper::TOP_DOWN_32, 35, 33);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  if (scene.index % 7 != 0)
    source.Premultiply(scene.random);
  scene.Note(Blend(target, {0, 0, 35, HEIGHT}, source, {0, 0, 35, HEIGHT}, HowToBlend(scene)));
  scene.Keep(target);
}

/// A whole picture blended to any size.
void DrawBlendedWhole(Scene& scene) {
  const int width = scene.random.In(1, 40);
  const int height = scene.random.In(1, 40);
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(scene.index % 5 == 0 ? Paper::BOTTOM_UP_32 : Paper::TOP_DOWN_32, width,
                     height);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  source.Premultiply(scene.random);
  ClipSome(target, scene);
  const Box to = PlaceIn(scene.random, scene.index % 2 == 0 ? 90 : 20);
  scene.Note(Blend(target, to, source, {0, 0, width, height}, HowToBlend(scene)));
  scene.Keep(target);
}

/// Source rectangles may be empty or reach outside; targets may be empty or mirrored.
void DrawBlendedPart(Scene& scene) {
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(Paper::TOP_DOWN_32, 35, 33);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  source.Premultiply(scene.random);
  const int x = scene.random.In(-30, 30);
  const int y = scene.random.In(-20, 20);
  const int width = scene.random.In(-10, 60);
  const int height = scene.random.In(-10, 50);
  const int sourceX = scene.random.In(-1, 10);
  const int sourceY = scene.random.In(-1, 10);
  const int sourceWidth = scene.random.In(0, 27);
  const int sourceHeight = scene.random.In(0, 25);
  scene.Note(Blend(target, {x, y, width, height}, source,
                   {sourceX, sourceY, sourceWidth, sourceHeight}, HowToBlend(scene)));
  scene.Keep(target);
}

void DrawBlendedFrom16(Scene& scene) {
  const Paper target(TargetKind(scene), WIDTH, HEIGHT);
  const Paper source(Paper::BOTTOM_UP_16, 35, 33);
  target.FillWithNoise(scene.random);
  source.FillWithNoise(scene.random);
  const BLENDFUNCTION how = {AC_SRC_OVER, 0, scene.random.Byte(),
                             static_cast<BYTE>(scene.index % 2)};
  scene.Note(Blend(target, {0, 0, 35, HEIGHT}, source, {0, 0, 35, HEIGHT}, how));
  scene.Keep(target);
}

/// Bitmaps in the screen's format, which frames are presented in, with drawings on top.
void DrawLikeTheScreen(Scene& scene) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  {
    const InUse bitmap(dc, CreateCompatibleBitmap(screen, WIDTH, HEIGHT));
    const Paper frame(Paper::BOTTOM_UP_16, 50, 36);
    const Paper picture(Paper::TOP_DOWN_32, 20, 20);
    frame.FillWithNoise(scene.random);
    picture.FillWithNoise(scene.random);
    picture.Premultiply(scene.random);
    Box to = {0, 0, WIDTH, HEIGHT};
    MirrorByChance(to, scene.random);
    scene.Note(StretchBlt(dc, to.x, to.y, to.width, to.height, frame.GetDC(), 0, 0, 50, 36,
                          OperationOf(scene)));
    const int x = scene.random.In(-5, 30);
    const int y = scene.random.In(-5, 30);
    const int width = scene.random.In(1, 30);
    const int height = scene.random.In(1, 30);
    if (scene.index % 2 == 0)
      scene.Note(
          AlphaBlend(dc, x, y, width, height, picture.GetDC(), 0, 0, 20, 20, HowToBlend(scene)));
    else
      scene.Note(StretchBlt(dc, x, y, width, height, picture.GetDC(), 0, 0, 20, 20, SRCCOPY));
    const Paper seen(scene.index % 3 == 0 ? Paper::TOP_DOWN_16 : Paper::TOP_DOWN_32, WIDTH, HEIGHT);
    scene.Note(BitBlt(seen.GetDC(), 0, 0, WIDTH, HEIGHT, dc, 0, 0, SRCCOPY));
    scene.Keep(seen);
  }
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
}

}  // namespace

std::vector<Family> BlitFamilies() {
  return {
      {"copy", 300, &DrawCopy},
      {"whole", 1000, &DrawWhole},
      {"part", 1000, &DrawPart},
      {"length", MOST_LENGTH * MOST_LENGTH, &DrawLength},
      {"overlap", 100, &DrawOverlap},
      {"blended", 200, &DrawBlended},
      {"blended-whole", 1000, &DrawBlendedWhole},
      {"blended-part", 300, &DrawBlendedPart},
      {"blended-16", 60, &DrawBlendedFrom16},
      {"like-the-screen", 300, &DrawLikeTheScreen},
  };
}

}  // namespace drawing
