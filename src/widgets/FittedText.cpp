#include "widgets/FittedText.h"

#include "render/Canvas.h"

namespace ferolin {

namespace {

constexpr int SIZE_STEP = 5;
constexpr int SMALLEST_TO_SHRINK = 6;

}  // namespace

FittedText::FittedText(Canvas& surface, WideStringView face, int largestSize, WideString content,
                       SIZE available)
    : canvas(surface), text(std::move(content)), fontSize(largestSize) {
  MakeFont(face);
  while ((extent.cx > available.cx || extent.cy > available.cy) && fontSize >= SMALLEST_TO_SHRINK) {
    DeleteObject(font);
    fontSize -= SIZE_STEP;
    MakeFont(face);
  }
}

FittedText::~FittedText() {
  DeleteObject(font);
}

void FittedText::MakeFont(WideStringView face) {
  font = canvas.MakeFont(face, fontSize, 0);
  extent = canvas.MeasureText(font, text.c_str());
}

void FittedText::Draw(int x, int y, COLORREF color) const {
  canvas.DrawText(font, text.c_str(), x, y, color);
}

}  // namespace ferolin
