#include "window/Notice.h"

#include "drawing/Painter.h"
#include "pages/Session.h"

namespace app {

namespace {

// Units.
constexpr int HEIGHT = 44;
constexpr int MARGIN = 4;
constexpr int BORDER = 1;
constexpr Painter::TextSize TEXT_SIZE = {16, 10};

}  // namespace

RECT DrawNotice(Painter& painter, const Session& session) {
  const Theme& theme = session.isLightTheme ? LIGHT_THEME : DARK_THEME;
  const int height = painter.PixelsFrom(HEIGHT);
  const int top = (painter.GetHeight() - height) / 2;
  const RECT strip = {0, top, painter.GetWidth(), top + height};
  const int middle = (strip.top + strip.bottom) / 2;
  const int margin = painter.PixelsFrom(MARGIN);
  painter.GetShapes().DrawFrame(strip, 0, painter.PixelsFrom(BORDER), theme.warning, theme.row);
  painter.DrawText(session.receiver.DescribeTrouble(),
                   {margin, strip.top + margin / 2, painter.GetWidth() - margin, middle}, TEXT_SIZE,
                   theme.warning, Painter::Align::CENTER);
  painter.DrawText(session.receiver.Describe(),
                   {margin, middle, painter.GetWidth() - margin, strip.bottom - margin / 2},
                   TEXT_SIZE, theme.text, Painter::Align::CENTER);
  return strip;
}

}  // namespace app
