#pragma once

#include <windows.h>

#include <string_view>

#include "base/WideString.h"
#include "render/GdiObject.h"
#include "render/Surface.h"

namespace ferolin {

/// The drawing surface of the process. Views paint a frame into its back buffer, in logical pixels
/// of 96 dpi and always upright. Presenting scales, flips, turns and inverts the frame, as
/// `theInvertFlags` say, into a buffer of the window's real size. What is drawn into that buffer
/// afterwards (the buttons) stays upright.
///
/// Order of a frame: BeginFrame, FillBackground, painting, PresentTransformed, buttons,
/// FlushToWindow. The buffers last from frame to frame; a change of size makes new ones. Used under
/// the engine's data lock.
class Canvas {
 public:
  constexpr Canvas() = default;

  /// Makes both buffers as large as the window needs. A frame for a window without a drawing
  /// context is not shown.
  void BeginFrame(HWND frameWindow);
  void FillBackground(COLORREF color);
  /// {0, 0, width, height} of the back buffer; all zero when there is none.
  RECT GetFrameRect() const;
  void PresentTransformed();
  /// Pixel of the frame that is presented at that pixel of the window; {0, 0} before the first
  /// frame.
  POINT ToFrame(POINT windowPoint) const;
  void FlushToWindow();
  /// Deletes buffers and contexts. The next BeginFrame makes new ones.
  void ReleaseAll();

  /// Contexts of the back buffer and of the present buffer; null before the first frame.
  HDC GetDrawingDC() const { return backBuffer.GetDC(); }
  HDC GetPresentDC() const { return presentBuffer.GetDC(); }

  // ---- Lines and shapes in the back buffer ----

  void DrawLine(COLORREF color, int penWidth, int x1, int y1, int x2, int y2);
  void DrawThinLine(COLORREF color, int x1, int y1, int x2, int y2);
  /// The pen stays the caller's.
  void DrawLineWithPen(HPEN pen, int x1, int y1, int x2, int y2);
  /// Draws nothing for fewer than two points.
  void DrawPolyline(COLORREF color, int penWidth, const POINT* points, int count);
  /// One pixel wide. A negative radius draws nothing.
  void DrawCircleOutline(COLORREF color, int centerX, int centerY, int radius);
  void DrawFilledCircle(COLORREF penColor, int penWidth, COLORREF fillColor, int centerX,
                        int centerY, int radius);

  /// These four delete the pen and the brush that were selected before and leave their own
  /// selected. So there is never more than one pair of them.
  void DrawRectangle(COLORREF penColor, int penWidth, COLORREF fillColor, const RECT& rect);
  /// A rectangle one pixel wide that keeps what it surrounds.
  void DrawOutline(COLORREF color, const RECT& rect);
  void DrawRoundRect(COLORREF penColor, int penWidth, COLORREF fillColor, int left, int top,
                     int right, int bottom);
  void DrawRoundRectR(COLORREF penColor, int penWidth, COLORREF fillColor, const RECT& rect);

  /// The region stays the caller's. Null ends clipping.
  void SetClipRegion(HRGN region);

  // ---- Text ----

  /// `height` of the character cell in logical pixels, `angle` in degrees, counter-clockwise. The
  /// face of MakeFontA is 8-bit text in the ANSI code page.
  Font MakeFont(WideStringView face, int height, int angle);
  Font MakeFontA(std::string_view face, int height, int angle);
  SIZE MeasureText(HFONT font, LPCWSTR text);
  /// The text's top left corner stands at (x, y).
  void DrawText(HFONT font, LPCWSTR text, int x, int y, COLORREF color);

 private:
  /// Width or height of the presented picture in the window's pixels. A negative extent mirrors.
  struct Side {
    LONG start;
    LONG extent;
  };

  static Side SideOf(LONG length, bool flipped);
  void PresentRotated(const Side& across, const Side& down, DWORD operation);
  void ReplacePenAndBrush(HGDIOBJ pen, HGDIOBJ brush);

  HWND window = nullptr;
  Surface backBuffer;
  void* backBufferBits = nullptr;
  Surface presentBuffer;
};

extern Canvas theCanvas;

}  // namespace ferolin
