#include "render/Canvas.h"

#include "base/CodePage.h"
#include "render/FrameBitmap.h"
#include "render/InvertFlags.h"
#include "render/Rotation.h"
#include "render/Selection.h"
#include "render/SolidFill.h"

namespace ferolin {

constinit Canvas theCanvas;

namespace {

constexpr int LOGICAL_DPI = 96;

/// A missing context has no resolution. Nothing is shown then, so any size will do.
LONG ToLogical(LONG pixels, HDC dc, int resolution) {
  const int dpi = GetDeviceCaps(dc, resolution);
  return dpi > 0 ? pixels * LOGICAL_DPI / dpi : pixels;
}

/// Size of the view that fills the window. A window lying on its side shows an upright view.
SIZE FrameSize(HDC dc, SIZE client) {
  const SIZE size = {ToLogical(client.cx, dc, LOGPIXELSX), ToLogical(client.cy, dc, LOGPIXELSY)};
  return theInvertFlags.orient ? SIZE{size.cy, size.cx} : size;
}

SIZE ClientSize(HWND window) {
  RECT client = {};
  GetClientRect(window, &client);
  return {client.right - client.left, client.bottom - client.top};
}

bool HasSize(const Surface& surface, SIZE wanted) {
  const SIZE size = surface.GetSize();
  return surface.HasBitmap() && size.cx == wanted.cx && size.cy == wanted.cy;
}

}  // namespace

void Canvas::BeginFrame(HWND frameWindow) {
  window = frameWindow;
  const HDC windowDC = ::GetDC(window);
  const SIZE client = ClientSize(window);
  const SIZE frame = FrameSize(windowDC, client);
  backBuffer.EnsureDC(windowDC);
  if (!HasSize(backBuffer, frame)) {
    backBufferBits = nullptr;
    backBuffer.SetBitmap(CreateFrameBitmap(windowDC, frame.cx, frame.cy, &backBufferBits));
  }
  presentBuffer.EnsureDC(windowDC);
  if (!HasSize(presentBuffer, client)) {
    presentBuffer.SetBitmap(CreateCompatibleBitmap(windowDC, client.cx, client.cy));
  }
  if (windowDC != nullptr) {
    ReleaseDC(window, windowDC);
  }
}

void Canvas::FillBackground(COLORREF color) {
  FillSolid(GetDrawingDC(), GetFrameRect(), color);
}

RECT Canvas::GetFrameRect() const {
  const SIZE size = backBuffer.GetSize();
  return {0, 0, size.cx, size.cy};
}

/// The picture is turned first, then flipped and inverted in the window's coordinates.
void Canvas::PresentTransformed() {
  const SIZE size = presentBuffer.GetSize();
  const Side across = SideOf(size.cx, theInvertFlags.horz != 0);
  const Side down = SideOf(size.cy, theInvertFlags.vert != 0);
  const DWORD operation = theInvertFlags.color ? NOTSRCCOPY : SRCCOPY;
  if (theInvertFlags.orient) {
    PresentRotated(across, down, operation);
    return;
  }
  const SIZE frame = backBuffer.GetSize();
  StretchBlt(GetPresentDC(), across.start, down.start, across.extent, down.extent, GetDrawingDC(),
             0, 0, frame.cx, frame.cy, operation);
}

/// A mirrored side starts at the last pixel, not one behind it: the start belongs to the side.
Canvas::Side Canvas::SideOf(LONG length, bool flipped) {
  return flipped ? Side{length - 1, -length} : Side{0, length};
}

/// The turned copy lives for one frame only: it is as large as the back buffer, and handhelds are
/// short of memory.
void Canvas::PresentRotated(const Side& across, const Side& down, DWORD operation) {
  const SIZE frame = backBuffer.GetSize();
  void* bits = nullptr;
  const Bitmap turned(CreateFrameBitmap(GetPresentDC(), frame.cy, frame.cx, &bits));
  if (turned == nullptr) {
    return;
  }
  RotateClockwise(static_cast<const std::uint16_t*>(backBufferBits), frame.cx, frame.cy,
                  static_cast<std::uint16_t*>(bits));
  const Selection selection(GetDrawingDC(), turned.get());
  StretchBlt(GetPresentDC(), across.start, down.start, across.extent, down.extent, GetDrawingDC(),
             0, 0, frame.cy, frame.cx, operation);
}

/// Undoes what presenting does, in reverse order.
POINT Canvas::ToFrame(POINT point) const {
  const SIZE client = presentBuffer.GetSize();
  const SIZE frame = backBuffer.GetSize();
  if (client.cx == 0 || client.cy == 0) {
    return {0, 0};
  }
  const LONG across = theInvertFlags.horz ? client.cx - 1 - point.x : point.x;
  const LONG down = theInvertFlags.vert ? client.cy - 1 - point.y : point.y;
  if (theInvertFlags.orient) {
    return {down * frame.cx / client.cy, frame.cy - 1 - across * frame.cy / client.cx};
  }
  return {across * frame.cx / client.cx, down * frame.cy / client.cy};
}

void Canvas::FlushToWindow() {
  const HDC windowDC = ::GetDC(window);
  if (windowDC == nullptr) {
    return;
  }
  const SIZE client = ClientSize(window);
  BitBlt(windowDC, 0, 0, client.cx, client.cy, GetPresentDC(), 0, 0, SRCCOPY);
  ReleaseDC(window, windowDC);
}

void Canvas::ReleaseAll() {
  if (GetDrawingDC() != nullptr) {
    ReplacePenAndBrush(GetStockObject(BLACK_PEN), GetStockObject(WHITE_BRUSH));
  }
  backBuffer.Release();
  backBufferBits = nullptr;
  presentBuffer.Release();
}

void Canvas::DrawLine(COLORREF color, int penWidth, int x1, int y1, int x2, int y2) {
  const Pen pen(CreatePen(PS_SOLID, penWidth, color));
  DrawLineWithPen(pen.get(), x1, y1, x2, y2);
}

void Canvas::DrawThinLine(COLORREF color, int x1, int y1, int x2, int y2) {
  DrawLine(color, 1, x1, y1, x2, y2);
}

void Canvas::DrawLineWithPen(HPEN pen, int x1, int y1, int x2, int y2) {
  const Selection selection(GetDrawingDC(), pen);
  MoveToEx(GetDrawingDC(), x1, y1, nullptr);
  LineTo(GetDrawingDC(), x2, y2);
}

void Canvas::DrawPolyline(COLORREF color, int penWidth, const POINT* points, int count) {
  if (count < 2) {
    return;
  }
  const Pen pen(CreatePen(PS_SOLID, penWidth, color));
  const Selection selection(GetDrawingDC(), pen.get());
  Polyline(GetDrawingDC(), points, count);
}

/// Walks a quarter of the circle from its top to its side, always to the pixel nearest to the
/// circle, and mirrors each pixel into the other three.
void Canvas::DrawCircleOutline(COLORREF color, int centerX, int centerY, int radius) {
  const HDC dc = GetDrawingDC();
  int across = 0;
  int error = 2 - 2 * radius;
  for (int up = radius; up >= 0;) {
    SetPixel(dc, centerX + across, centerY + up, color);
    SetPixel(dc, centerX + across, centerY - up, color);
    SetPixel(dc, centerX - across, centerY + up, color);
    SetPixel(dc, centerX - across, centerY - up, color);
    if (error < 0 && 2 * (error + up) - 1 < 1) {
      ++across;
      error += 2 * across + 1;
    } else if (error >= 1 && 2 * (error - across) - 1 >= 1) {
      --up;
      error += 1 - 2 * up;
    } else {
      ++across;
      error += 2 * (across - up);
      --up;
    }
  }
}

void Canvas::DrawFilledCircle(COLORREF penColor, int penWidth, COLORREF fillColor, int centerX,
                              int centerY, int radius) {
  const Pen pen(CreatePen(PS_SOLID, penWidth, penColor));
  const Brush brush(CreateSolidBrush(fillColor));
  const Selection penSelection(GetDrawingDC(), pen.get());
  const Selection brushSelection(GetDrawingDC(), brush.get());
  Ellipse(GetDrawingDC(), centerX - radius, centerY - radius, centerX + radius, centerY + radius);
}

void Canvas::DrawRectangle(COLORREF penColor, int penWidth, COLORREF fillColor, const RECT& rect) {
  ReplacePenAndBrush(CreatePen(PS_SOLID, penWidth, penColor), CreateSolidBrush(fillColor));
  Rectangle(GetDrawingDC(), rect.left, rect.top, rect.right, rect.bottom);
}

void Canvas::DrawOutline(COLORREF color, const RECT& rect) {
  ReplacePenAndBrush(CreatePen(PS_SOLID, 1, color), GetStockObject(NULL_BRUSH));
  Rectangle(GetDrawingDC(), rect.left, rect.top, rect.right, rect.bottom);
}

void Canvas::DrawRoundRect(COLORREF penColor, int penWidth, COLORREF fillColor, int left, int top,
                           int right, int bottom) {
  constexpr int CORNER = 3;
  ReplacePenAndBrush(CreatePen(PS_SOLID, penWidth, penColor), CreateSolidBrush(fillColor));
  RoundRect(GetDrawingDC(), left, top, right, bottom, CORNER, CORNER);
}

void Canvas::DrawRoundRectR(COLORREF penColor, int penWidth, COLORREF fillColor, const RECT& rect) {
  DrawRoundRect(penColor, penWidth, fillColor, rect.left, rect.top, rect.right, rect.bottom);
}

void Canvas::ReplacePenAndBrush(HGDIOBJ pen, HGDIOBJ brush) {
  DeleteObject(SelectObject(GetDrawingDC(), pen));
  DeleteObject(SelectObject(GetDrawingDC(), brush));
}

void Canvas::SetClipRegion(HRGN region) {
  SelectClipRgn(GetDrawingDC(), region);
}

Font Canvas::MakeFont(WideStringView face, int height, int angle) {
  constexpr int TENTHS = 10;
  LOGFONTW description = {};
  description.lfHeight = height;
  description.lfEscapement = angle * TENTHS;
  description.lfOrientation = angle * TENTHS;
  description.lfWeight = FW_NORMAL;
  CopyWide(description.lfFaceName, face);
  return Font(CreateFontIndirectW(&description));
}

Font Canvas::MakeFontA(std::string_view face, int height, int angle) {
  return MakeFont(Widen(face), height, angle);
}

SIZE Canvas::MeasureText(HFONT font, LPCWSTR text) {
  const Selection selection(GetDrawingDC(), font);
  RECT rect = {};
  DrawTextW(GetDrawingDC(), text, -1, &rect, DT_CALCRECT);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

void Canvas::DrawText(HFONT font, LPCWSTR text, int x, int y, COLORREF color) {
  const HDC dc = GetDrawingDC();
  const SIZE size = MeasureText(font, text);
  const COLORREF previousColor = SetTextColor(dc, color);
  const int previousMode = SetBkMode(dc, TRANSPARENT);
  {
    const Selection selection(dc, font);
    RECT rect = {x, y, x + size.cx, y + size.cy};
    DrawTextW(dc, text, -1, &rect, DT_NOCLIP);
  }
  SetTextColor(dc, previousColor);
  SetBkMode(dc, previousMode);
}

}  // namespace ferolin
