#include "widgets/path/PathLayer.h"

#include "render/FrameBitmap.h"
#include "render/GdiObject.h"
#include "render/Selection.h"
#include "render/SolidFill.h"
#include "widgets/path/PathLine.h"

namespace ferolin {

/// A picture with points that the track has dropped since is drawn anew.
void PathLayer::Draw(HDC dc, const PathPoints& points, const PathIndex& index,
                     const PathProjection& projection, const Colors& colors) {
  const RECT area = projection.GetArea();
  const bool hasPicture = MakePicture(dc, {area.right, area.bottom});
  const bool isKept = hasPicture && shownEnd > 0 && projection == shownProjection &&
                      colors == shownColors && points.GetFirst() == shownFirst &&
                      points.GetEnd() >= shownEnd;
  const HDC target = hasPicture ? picture.GetDC() : dc;
  if (!isKept) {
    FillSolid(target, area, colors.background);
  }
  const Region region(CreateRectRgn(area.left, area.top, area.right, area.bottom));
  const Pen pen(CreatePen(PS_SOLID, 1, colors.path));
  const Selection selection(target, pen.get());
  SelectClipRgn(target, region.get());
  PathLine(target, projection).Draw(points, isKept ? shownEnd - 1 : points.GetFirst(), index);
  SelectClipRgn(target, nullptr);
  if (hasPicture) {
    BitBlt(dc, area.left, area.top, area.right - area.left, area.bottom - area.top, target,
           area.left, area.top, SRCCOPY);
    shownProjection = projection;
    shownColors = colors;
    shownFirst = points.GetFirst();
    shownEnd = points.GetEnd();
  }
}

/// False without memory.
bool PathLayer::MakePicture(HDC model, SIZE size) {
  const SIZE before = picture.GetSize();
  if (before.cx != size.cx || before.cy != size.cy || !picture.FitsScreen()) {
    void* pixels = nullptr;
    picture.EnsureDC(model);
    picture.SetBitmap(CreateFrameBitmap(model, size.cx, size.cy, &pixels));
    shownEnd = 0;
  }
  return picture.HasBitmap();
}

}  // namespace ferolin
