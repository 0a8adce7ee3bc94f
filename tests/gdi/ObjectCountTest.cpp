#include <gtest/gtest.h>
#include <handheld.h>

#include "Section.h"

namespace {

TEST(Objects, DoNotPileUp) {
  const Section section(16, -16);
  const int before = handheld::GdiObjectsAlive();
  const RECT rect = {2, 2, 9, 9};
  for (int frame = 0; frame < 100000; ++frame) {
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    const HBRUSH brush = CreateSolidBrush(RGB(4, 5, 6));
    const HGDIOBJ oldPen = SelectObject(section.dc, pen);
    FillRect(section.dc, &rect, brush);
    LineTo(section.dc, 5, 5);
    SelectObject(section.dc, oldPen);
    DeleteObject(brush);
    DeleteObject(pen);
  }
  EXPECT_EQ(before, handheld::GdiObjectsAlive());
}

}  // namespace
