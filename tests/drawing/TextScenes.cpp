// Texts: their sizes and their pixels.

#include <algorithm>
#include <array>
#include <string>

#include "Scene.h"
#include "base/WideString.h"

namespace drawing {

namespace {

using ferolin::WideStringView;

constexpr std::array<WideStringView, 5> FACES = {TEXT("Liberation Serif"), TEXT("Liberation Sans"),
                                                 TEXT("Liberation Mono"), TEXT("Times New Roman"),
                                                 TEXT("LCD")};

constexpr std::array<const WCHAR*, 10> TEXTS = {
    TEXT("Wgy|"),
    TEXT("OOOOOOOOO"),
    TEXT("12.34 km"),
    TEXT("AVAWToTa"),
    TEXT("\x0421\x043A\x043E\x0440\x043E\x0441\x0442\x044C"),
    TEXT("a\nbcd"),
    TEXT(""),
    TEXT("x\r\ny\n"),
    TEXT("0123456789:.,-"),
    TEXT("A&B && c"),
};

/// The last text is only measured: some homes underline shortcuts, others do not.
constexpr int TEXTS_DRAWN = static_cast<int>(TEXTS.size()) - 1;

constexpr std::array HEIGHTS = {2,  4,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17,  18,  19,
                                20, 22, 24, 26, 28, 30, 32, 36, 40, 48, 60, 80, 110, 140, 170};

HFONT FontOf(WideStringView face, int height, int angle) {
  LOGFONTW description = {};
  description.lfHeight = height;
  description.lfEscapement = angle;
  description.lfOrientation = angle;
  description.lfWeight = FW_NORMAL;
  std::copy(face.begin(), face.end(), description.lfFaceName);
  return CreateFontIndirectW(&description);
}

constexpr int COMBINATIONS = static_cast<int>(FACES.size() * HEIGHTS.size());

HFONT FontOfScene(const Scene& scene, int angle) {
  const auto number = static_cast<std::size_t>(scene.index % COMBINATIONS);
  return FontOf(FACES[number % FACES.size()], HEIGHTS[number / FACES.size()], angle);
}

/// Notes the sizes of all texts. The picture stays empty.
void MeasureTexts(Scene& scene) {
  const Paper paper(Paper::TOP_DOWN_16, 1, 1);
  const InUse font(paper.GetDC(), FontOfScene(scene, 0));
  for (const WCHAR* text : TEXTS) {
    RECT rect = {7, 9, 1, 2};
    scene.Note(DrawTextW(paper.GetDC(), text, -1, &rect, DT_CALCRECT));
    for (const LONG side : {rect.left, rect.top, rect.right, rect.bottom})
      scene.Note(side);
  }
  scene.Keep(paper);
}

void DrawTexts(Scene& scene, int angle, int backgroundMode) {
  const auto kind = static_cast<Paper::Kind>(scene.index % Paper::KINDS);
  const Paper paper(kind, 260, 180);
  const COLORREF below = scene.random.Color();
  paper.Fill(scene.index % 4 == 0 ? RGB(0, 0, 0) : below);
  const InUse font(paper.GetDC(), FontOfScene(scene, angle));
  const COLORREF color = scene.random.Color();
  SetTextColor(paper.GetDC(), scene.index % 3 == 0 ? RGB(255, 255, 255) : color);
  SetBkMode(paper.GetDC(), backgroundMode);
  const WCHAR* text = TEXTS[static_cast<std::size_t>(scene.random.In(0, TEXTS_DRAWN - 1))];
  const bool isLevel = angle == 0;
  const int x = scene.random.In(isLevel ? -5 : -20, isLevel ? 30 : 280);
  const int y = scene.random.In(isLevel ? -5 : -20, isLevel ? 30 : 200);
  RECT rect = {x, y, x + 5, y + 5};
  scene.Note(DrawTextW(paper.GetDC(), text, -1, &rect, DT_NOCLIP));
  scene.Keep(paper);
}

void DrawLevel(Scene& scene) {
  DrawTexts(scene, 0, TRANSPARENT);
}

void DrawOpaque(Scene& scene) {
  DrawTexts(scene, 0, OPAQUE);
}

void DrawTurned(Scene& scene) {
  constexpr int DEGREE = 10;
  const int angle = scene.random.In(-360, 360);
  DrawTexts(scene, angle * DEGREE, TRANSPARENT);
}

}  // namespace

std::vector<Family> TextFamilies() {
  return {
      {"measured", COMBINATIONS, &MeasureTexts},
      {"text", COMBINATIONS * 4, &DrawLevel},
      {"opaque-text", COMBINATIONS, &DrawOpaque},
      {"turned-text", COMBINATIONS * 4, &DrawTurned},
  };
}

}  // namespace drawing
