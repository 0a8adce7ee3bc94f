#pragma once

#include <windows.h>

#include <string_view>

#include "base/WideString.h"
#include "render/Surface.h"

namespace ferolin {

/// The drawing surface of the process. Views draw a frame into its back buffer in logical pixels of
/// 96 dpi and never care how the screen is held: presenting scales, flips, turns and inverts the
/// frame, as `theInvertFlags` say, into a buffer of the window's real size. What is drawn into that
/// afterwards (the buttons) stays upright.
///
/// A frame is always: BeginFrame, FillBackground, drawing, PresentTransformed, buttons,
/// FlushToWindow. The buffers last from one frame to the next and are made anew when the size
/// wanted changes. Used under the engine's data lock.
class Canvas {
 public:
  constexpr Canvas() = default;

  /// Readies both buffers for the window. When the window has no drawing context the frame goes
  /// nowhere.
  void BeginFrame(HWND frameWindow);
  void FillBackground(COLORREF color);
  /// {0, 0, width, height} of the back buffer; all zero when there is none.
  RECT GetFrameRect() const;
  void PresentTransformed();
  /// The pixel of the frame that is presented at that pixel of the window. {0, 0} before the first
  /// frame.
  POINT ToFrame(POINT windowPoint) const;
  void FlushToWindow();
  /// Frees everything; the next BeginFrame starts afresh.
  void ReleaseAll();

  /// Of the back buffer and of the present buffer; null before the first frame.
  HDC GetDrawingDC() const { return backBuffer.GetDC(); }
  HDC GetPresentDC() const { return presentBuffer.GetDC(); }

  // ---- Lines and shapes in the back buffer ----

  void DrawLine(COLORREF color, int penWidth, int x1, int y1, int x2, int y2);
  void DrawThinLine(COLORREF color, int x1, int y1, int x2, int y2);
  /// The pen stays the caller's.
  void DrawLineWithPen(HPEN pen, int x1, int y1, int x2, int y2);
  /// Nothing for less than two points.
  void DrawPolyline(COLORREF color, int penWidth, const POINT* points, int count);
  /// One pixel wide; nothing for a negative radius.
  void DrawCircleOutline(COLORREF color, int centerX, int centerY, int radius);
  void DrawFilledCircle(COLORREF penColor, int penWidth, COLORREF fillColor, int centerX,
                        int centerY, int radius);

  /// Each of these deletes the pen and the brush that were selected before and leaves its own
  /// selected, so that there is never more than one pair of them.
  void DrawRectangle(COLORREF penColor, int penWidth, COLORREF fillColor, const RECT& rect);
  void DrawRoundRect(COLORREF penColor, int penWidth, COLORREF fillColor, int left, int top,
                     int right, int bottom);
  void DrawRoundRectR(COLORREF penColor, int penWidth, COLORREF fillColor, const RECT& rect);

  /// Null takes clipping away.
  void SetClipRegion(HRGN region);

  // ---- Text ----

  /// A new font, the caller's to delete. Height of the character cell in logical pixels; angle in
  /// degrees, counter-clockwise.
  HFONT MakeFont(WideStringView face, int height, int angle);
  HFONT MakeFontA(std::string_view face, int height, int angle);
  SIZE MeasureText(HFONT font, LPCWSTR text);
  /// Top-left corner at (x, y).
  void DrawText(HFONT font, LPCWSTR text, int x, int y, COLORREF color);

 private:
  void ReplacePenAndBrush(HGDIOBJ pen, HGDIOBJ brush);
  /// One side of the picture that is presented: where it starts in the window and how far it goes
  /// from there.
  struct Side {
    LONG start;
    LONG extent;
  };

  static Side SideOf(LONG length, bool flipped);
  void PresentRotated(const Side& across, const Side& down, DWORD operation);

  HWND window = nullptr;
  Surface backBuffer;
  void* backBufferBits = nullptr;
  Surface presentBuffer;
};

extern Canvas theCanvas;

}  // namespace ferolin
