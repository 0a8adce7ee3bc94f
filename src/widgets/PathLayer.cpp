#include "widgets/PathLayer.h"

#include "render/FrameBitmap.h"
#include "widgets/PathLine.h"

namespace ferolin {

namespace {

bool AreEqual(const RECT& a, const RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

}  // namespace

void PathLayer::Draw(HDC dc, const RECT& area, const PathPoints& points, const PathIndex& index,
                     const PathProjection& projection, const Colors& colors) {
  const SIZE size = {area.right - area.left, area.bottom - area.top};
  const bool isShown = Shows(area, points, projection, colors);
  if (!isShown) {
    shownArea = area;
    shownProjection = projection;
    shownColors = colors;
    shownFirst = points.GetFirst();
    Clear(dc, size);
  }
  if (!picture.HasBitmap()) {
    return;
  }
  if (!isShown || shownEnd < points.GetEnd()) {
    const HPEN pen = CreatePen(PS_SOLID, 1, colors.path);
    {
      const Selection selection(picture.GetDC(), pen);
      PathStrokes strokes(picture.GetDC(), area);
      PathLine line(points, index, projection, strokes);
      if (isShown) {
        line.DrawFrom(shownEnd);
      } else {
        strokes.RememberPixels();
        line.Draw();
      }
    }
    DeleteObject(pen);
    shownEnd = points.GetEnd();
  }
  BitBlt(dc, area.left, area.top, size.cx, size.cy, picture.GetDC(), 0, 0, SRCCOPY);
}

bool PathLayer::Shows(const RECT& area, const PathPoints& points, const PathProjection& projection,
                      const Colors& colors) const {
  return picture.HasBitmap() && AreEqual(area, shownArea) && projection == shownProjection &&
         colors == shownColors && points.GetFirst() == shownFirst && points.GetEnd() >= shownEnd;
}

void PathLayer::Clear(HDC dc, SIZE size) {
  const SIZE old = picture.GetSize();
  if (old.cx != size.cx || old.cy != size.cy) {
    void* bits = nullptr;
    picture.EnsureDC(dc);
    picture.SetBitmap(CreateFrameBitmap(dc, size.cx, size.cy, &bits));
  }
  const RECT whole = {0, 0, size.cx, size.cy};
  const HBRUSH brush = CreateSolidBrush(shownColors.background);
  FillRect(picture.GetDC(), &whole, brush);
  DeleteObject(brush);
}

}  // namespace ferolin
