#include "drawing/Painter.h"

#include <algorithm>

namespace app {

namespace {

constexpr LPCWSTR FACE = TEXT("Tahoma");
constexpr int USUAL_SHORTER_SIDE = 320;
constexpr WCHAR BLANK = ' ';

COLORREF ToColorRef(Color color) {
  return RGB(static_cast<BYTE>(color >> 16), static_cast<BYTE>(color >> 8),
             static_cast<BYTE>(color));
}

}  // namespace

Painter::~Painter() {
  DeleteFonts();
}

void Painter::Begin(int width, int height, int dpi) {
  bitmap.EnsureSize(width, height);
  const int newUnit = std::max(dpi, UNITS * std::min(width, height) / USUAL_SHORTER_SIDE);
  if (newUnit != unit) {
    DeleteFonts();
    unit = newUnit;
  }
  clippedTexts = 0;
}

void Painter::DeleteFonts() {
  for (const SizedFont& each : fonts) {
    DeleteObject(each.font);
  }
  fonts.clear();
}

HFONT Painter::GetFont(int units) {
  for (const SizedFont& each : fonts) {
    if (each.units == units) {
      return each.font;
    }
  }
  LOGFONTW description = {};
  description.lfHeight = -PixelsFrom(units);
  description.lfWeight = FW_NORMAL;
  ferolin::CopyWide(description.lfFaceName, FACE);
  const HFONT font = CreateFontIndirectW(&description);
  fonts.push_back({units, font});
  return font;
}

int Painter::MeasureWidth(WideStringView text, int units) {
  const HGDIOBJ previous = SelectObject(bitmap.GetDC(), GetFont(units));
  RECT rect = {};
  DrawTextW(bitmap.GetDC(), text.data(), static_cast<int>(text.size()), &rect,
            DT_CALCRECT | DT_NOPREFIX);
  SelectObject(bitmap.GetDC(), previous);
  return rect.right - rect.left;
}

void Painter::DrawLine(const WideString& text, const RECT& rect, int units, Color color,
                       Align align) {
  const HDC dc = bitmap.GetDC();
  const HGDIOBJ previous = SelectObject(dc, GetFont(units));
  const int length = static_cast<int>(text.size());
  RECT size = {};
  DrawTextW(dc, text.c_str(), length, &size, DT_CALCRECT | DT_NOPREFIX);
  const int spare = rect.right - rect.left - size.right;
  const int indent = align == Align::LEFT ? 0 : align == Align::RIGHT ? spare : spare / 2;
  const int left = rect.left + indent;
  const int top = rect.top + (rect.bottom - rect.top - size.bottom) / 2;
  RECT place = {left, top, left + size.right, top + size.bottom};
  SetTextColor(dc, ToColorRef(color));
  SetBkMode(dc, TRANSPARENT);
  DrawTextW(dc, text.c_str(), length, &place, DT_NOCLIP | DT_NOPREFIX);
  SelectObject(dc, previous);
}

int Painter::FindFittingSize(const WideString& text, int width, TextSize size) {
  for (int units = size.wanted; units >= size.smallest; --units) {
    if (MeasureWidth(text, units) <= width) {
      return units;
    }
  }
  return 0;
}

void Painter::DrawText(const WideString& text, const RECT& rect, TextSize size, Color color,
                       Align align) {
  if (text.empty()) {
    return;
  }
  const int fitting = FindFittingSize(text, rect.right - rect.left, size);
  clippedTexts += fitting == 0 ? 1 : 0;
  DrawLine(text, rect, fitting != 0 ? fitting : size.smallest, color, align);
}

/// A slightly smaller line reads better than two, two of them better than a small one.
void Painter::DrawLabel(const WideString& text, const RECT& rect, TextSize size, Color color) {
  constexpr int SLIGHTLY = 3;
  const int width = rect.right - rect.left;
  const TextSize oneLine = {size.wanted, std::max(size.wanted - SLIGHTLY, size.smallest)};
  if (FindFittingSize(text, width, oneLine) != 0) {
    DrawText(text, rect, oneLine, color, Align::LEFT);
    return;
  }
  for (int units = oneLine.smallest; units >= size.smallest; --units) {
    const std::vector<WideString> lines = BreakIntoLines(text, width, units);
    const int lineHeight = PixelsFrom(units) * 5 / 4;
    // One character, the blank between the lines, is left out; a broken word would lose none.
    const bool isBrokenAtBlank =
        lines.size() == 2 && lines[0].size() + 1 + lines[1].size() == text.size();
    if (isBrokenAtBlank && 2 * lineHeight <= rect.bottom - rect.top) {
      const int middle = (rect.top + rect.bottom) / 2;
      DrawLine(lines[0], {rect.left, middle - lineHeight, rect.right, middle}, units, color,
               Align::LEFT);
      DrawLine(lines[1], {rect.left, middle, rect.right, middle + lineHeight}, units, color,
               Align::LEFT);
      return;
    }
  }
  DrawText(text, rect, size, color, Align::LEFT);
}

std::size_t Painter::CountFitting(WideStringView text, int width, int units) {
  // No line holds more; a long text is not measured to its end for each of its lines.
  constexpr std::size_t LONGEST_LINE = 256;
  std::size_t fitting = 1;
  std::size_t tooMany = std::min(text.size(), LONGEST_LINE) + 1;
  while (tooMany - fitting > 1) {
    const std::size_t tried = (fitting + tooMany) / 2;
    (MeasureWidth(text.substr(0, tried), units) <= width ? fitting : tooMany) = tried;
  }
  return fitting;
}

std::vector<WideString> Painter::BreakIntoLines(const WideString& text, int width, int units) {
  std::vector<WideString> lines;
  WideStringView rest = text;
  while (!rest.empty()) {
    std::size_t taken = CountFitting(rest, width, units);
    if (taken < rest.size()) {
      const std::size_t blank = rest.rfind(BLANK, taken);
      taken = blank != WideStringView::npos && blank > 0 ? blank : taken;
    }
    lines.emplace_back(rest.substr(0, taken));
    rest.remove_prefix(taken);
    while (!rest.empty() && rest.front() == BLANK) {
      rest.remove_prefix(1);
    }
  }
  return lines;
}

}  // namespace app
