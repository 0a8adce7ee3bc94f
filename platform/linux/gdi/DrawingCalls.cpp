// Calls that draw lines, shapes and single pixels.
#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "core/LastError.h"
#include "fine/Shapes.h"
#include "gdi/DeviceContext.h"
#include "gdi/Ellipses.h"
#include "gdi/Lines.h"
#include "gdi/ObjectTable.h"
#include "gdi/Twins.h"
#include "gdi/WidePen.h"

namespace handheld::gdi {

namespace {

using Purpose = UsedContext::Purpose;

enum class Closing { OPEN, CLOSED };

std::uint32_t PenPixel(const DeviceContext& context) {
  return context.GetRaster().PixelFrom(context.pen->color);
}

void DrawDashed(const DeviceContext& context, std::span<const POINT> points, Closing closing) {
  const Target target = context.GetDrawingTarget();
  const std::uint32_t pixel = PenPixel(context);
  const std::uint32_t gapPixel = target.raster.PixelFrom(BACKGROUND_COLOR);
  const std::uint32_t* gap = context.backgroundMode == OPAQUE ? &gapPixel : nullptr;
  DashPosition dashes;
  for (std::size_t i = 1; i < points.size(); ++i) {
    DrawDashedLine(target, points[i - 1], points[i], pixel, gap, dashes);
  }
  if (closing == Closing::CLOSED) {
    DrawDashedLine(target, points.back(), points.front(), pixel, gap, dashes);
  }
}

fine::PenLook FinePen(const DeviceContext& context) {
  return {context.pen->width, ArgbFromColor(context.pen->color)};
}

void DrawFineDashes(fine::Twin& twin, const DeviceContext& context, std::span<const POINT> points,
                    Closing closing) {
  const std::uint32_t rgb = FinePen(context).rgb;
  const std::optional<std::uint32_t> gap = context.backgroundMode == OPAQUE
                                               ? std::optional(ArgbFromColor(BACKGROUND_COLOR))
                                               : std::nullopt;
  DashPosition dashes;
  const auto draw = [&](POINT from, POINT to) {
    fine::DrawDashes(twin, from, to, dashes.offset, rgb, gap);
    dashes.GoOn(from, to);
  };
  for (std::size_t i = 1; i < points.size(); ++i) {
    draw(points[i - 1], points[i]);
  }
  if (closing == Closing::CLOSED) {
    draw(points.back(), points.front());
  }
}

void DrawFineLines(const DeviceContext& context, std::span<const POINT> points, Closing closing) {
  fine::Twin* twin = TwinOf(context);
  if (twin == nullptr || context.pen->style == PS_NULL) {
    return;
  }
  if (context.pen->style == PS_DASH) {
    DrawFineDashes(*twin, context, points, closing);
  } else {
    fine::DrawLines(*twin, points, closing == Closing::CLOSED, FinePen(context));
  }
}

/// Draws lines through at least two points with the context's pen, into the bitmap alone.
void DrawCoarseLines(const DeviceContext& context, std::span<const POINT> points, Closing closing) {
  const Pen& pen = *context.pen;
  if (pen.style == PS_NULL) {
    return;
  }
  if (pen.style == PS_DASH) {
    return DrawDashed(context, points, closing);
  }
  const Target target = context.GetDrawingTarget();
  const std::uint32_t pixel = PenPixel(context);
  if (pen.width > 1) {
    const WidePen wide(pen.width);
    if (closing == Closing::CLOSED) {
      wide.DrawClosed(target, points, pixel);
    } else {
      wide.Draw(target, points, pixel);
    }
    return;
  }
  DrawThinLines(target, points, pixel);
  if (closing == Closing::CLOSED) {
    DrawThinLines(target, std::array{points.back(), points.front()}, pixel);
  }
}

void DrawLines(const DeviceContext& context, std::span<const POINT> points, Closing closing) {
  DrawCoarseLines(context, points, closing);
  DrawFineLines(context, points, closing);
}

RECT Ordered(int left, int top, int right, int bottom) {
  return {std::min(left, right), std::min(top, bottom), std::max(left, right),
          std::max(top, bottom)};
}

void FillArea(const DeviceContext& context, const RECT& rect, COLORREF color) {
  context.GetDrawingTarget().Fill(rect, context.GetRaster().PixelFrom(color));
  if (fine::Twin* twin = TwinOf(context)) {
    twin->Fill(rect, ArgbFromColor(color));
  }
}

void DrawRectangle(const DeviceContext& context, RECT rect) {
  // The outline lies on the last column and row inside.
  --rect.right;
  --rect.bottom;
  if (!context.brush->isNull) {
    const int border = context.pen->style != PS_NULL && context.pen->width == 1 ? 1 : 0;
    FillArea(context, {rect.left + border, rect.top + border, rect.right, rect.bottom},
             context.brush->color);
  }
  const std::array<POINT, 4> corners = {POINT{rect.right, rect.top}, POINT{rect.left, rect.top},
                                        POINT{rect.left, rect.bottom},
                                        POINT{rect.right, rect.bottom}};
  DrawLines(context, corners, Closing::CLOSED);
}

void DrawFineRounded(fine::Twin& twin, const DeviceContext& context, const RoundedRect& shape) {
  fine::RoundedLook look = {shape.rect, shape.cornerWidth, shape.cornerHeight, {}, {}};
  if (context.pen->style != PS_NULL) {
    look.pen = FinePen(context);
  }
  if (!context.brush->isNull) {
    look.fill = ArgbFromColor(context.brush->color);
  }
  fine::DrawRounded(twin, look);
}

void DrawRounded(const DeviceContext& context, const RECT& rect, int cornerWidth,
                 int cornerHeight) {
  if (IsEmpty(rect)) {
    return;
  }
  const RoundedRect shape = {
      rect, static_cast<int>(std::min<LONG>(rect.right - rect.left, std::abs(cornerWidth))),
      static_cast<int>(std::min<LONG>(rect.bottom - rect.top, std::abs(cornerHeight)))};
  // Corners that small have no curve.
  if (shape.cornerWidth <= 2 || shape.cornerHeight <= 2) {
    return DrawRectangle(context, rect);
  }
  if (!context.brush->isNull) {
    FillRounded(context.GetDrawingTarget(), shape,
                context.GetRaster().PixelFrom(context.brush->color));
  }
  DrawCoarseLines(context, OutlineOf(shape), Closing::CLOSED);
  if (fine::Twin* twin = TwinOf(context)) {
    DrawFineRounded(*twin, context, shape);
  }
}

}  // namespace

extern "C" {

int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush) {
  const UsedContext context(dc, Purpose::DRAWING);
  if (!context || rect == nullptr) {
    return TRUE;
  }
  // As on the device, the selected brush replaces a handle that is no brush.
  std::shared_ptr<Brush> used = ObjectTable::Instance().Find<Brush>(brush);
  if (used == nullptr) {
    used = context->brush;
  }
  if (used->isNull) {
    return TRUE;
  }
  // A reversed side runs backwards from its start and includes it.
  RECT area = *rect;
  if (area.right < area.left) {
    area = {area.right + 1, area.top, area.left + 1, area.bottom};
  }
  if (area.bottom < area.top) {
    area = {area.left, area.bottom + 1, area.right, area.top + 1};
  }
  FillArea(*context, area, used->color);
  return TRUE;
}

BOOL WINAPI MoveToEx(HDC dc, int x, int y, POINT* previous) {
  const UsedContext context(dc);
  if (!context) {
    return FALSE;
  }
  if (previous != nullptr) {
    *previous = context->position;
  }
  context->position = {x, y};
  return TRUE;
}

BOOL WINAPI LineTo(HDC dc, int x, int y) {
  return Guarded<BOOL>(FALSE, [&]() -> BOOL {
    const UsedContext context(dc, Purpose::DRAWING);
    if (!context) {
      return FALSE;
    }
    const std::array<POINT, 2> points = {context->position, POINT{x, y}};
    DrawLines(*context, points, Closing::OPEN);
    context->position = {x, y};
    return TRUE;
  });
}

BOOL WINAPI Polyline(HDC dc, const POINT* points, int count) {
  return Guarded<BOOL>(FALSE, [&]() -> BOOL {
    const UsedContext context(dc, Purpose::DRAWING);
    if (!context || points == nullptr || count < 2) {
      return FALSE;
    }
    DrawLines(*context, {points, static_cast<std::size_t>(count)}, Closing::OPEN);
    return TRUE;
  });
}

BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom) {
  return Guarded<BOOL>(FALSE, [&]() -> BOOL {
    const UsedContext context(dc, Purpose::DRAWING);
    if (!context) {
      return FALSE;
    }
    const RECT rect = Ordered(left, top, right, bottom);
    if (!IsEmpty(rect)) {
      DrawRectangle(*context, rect);
    }
    return TRUE;
  });
}

BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int cornerWidth,
                      int cornerHeight) {
  return Guarded<BOOL>(FALSE, [&]() -> BOOL {
    const UsedContext context(dc, Purpose::DRAWING);
    if (!context) {
      return FALSE;
    }
    DrawRounded(*context, Ordered(left, top, right, bottom), cornerWidth, cornerHeight);
    return TRUE;
  });
}

BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom) {
  // An ellipse is a rectangle that is nothing but corners.
  return RoundRect(dc, left, top, right, bottom, right - left, bottom - top);
}

COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color) {
  const UsedContext context(dc, Purpose::DRAWING);
  if (!context) {
    return CLR_INVALID;
  }
  const Target target = context->GetDrawingTarget();
  const std::uint32_t pixel = target.raster.PixelFrom(color);
  if (target.Contains(x, y)) {
    target.raster.Set(x, y, pixel);
  }
  if (fine::Twin* twin = TwinOf(*context)) {
    twin->DrawPixel({x, y}, ArgbFromColor(color));
  }
  const std::uint32_t argb =
      target.raster.format == PixelFormat::ARGB8888 ? pixel : ArgbFrom555(pixel);
  return RGB(static_cast<BYTE>(argb >> 16), static_cast<BYTE>(argb >> 8), static_cast<BYTE>(argb));
}

COLORREF WINAPI GetPixel(HDC dc, int x, int y) {
  const UsedContext context(dc);
  if (!context) {
    return CLR_INVALID;
  }
  const Raster& raster = context->GetRaster();
  if (x < 0 || y < 0 || x >= raster.width || y >= raster.height) {
    return CLR_INVALID;
  }
  return raster.GetColor(x, y);
}

}  // extern "C"

}  // namespace handheld::gdi
