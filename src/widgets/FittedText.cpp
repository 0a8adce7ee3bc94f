#include "widgets/FittedText.h"

#include "render/Canvas.h"

namespace ferolin {

namespace {

constexpr int SIZE_STEP = 5;
constexpr int SMALLEST_TO_SHRINK = 6;

}  // namespace

FittedText::FittedText(Canvas& canvas, WideStringView face, int largestSize, WideString text,
                       SIZE available)
    : canvas(canvas), text(std::move(text)), fontSize(largestSize) {
  MakeFont(face);
  while ((extent.cx > available.cx || extent.cy > available.cy) && fontSize >= SMALLEST_TO_SHRINK) {
    fontSize -= SIZE_STEP;
    MakeFont(face);
  }
}

void FittedText::MakeFont(WideStringView face) {
  font = canvas.MakeFont(face, fontSize, 0);
  extent = canvas.MeasureText(font.get(), text.c_str());
}

void FittedText::Draw(int x, int y, COLORREF color) const {
  canvas.DrawText(font.get(), text.c_str(), x, y, color);
}

}  // namespace ferolin
