#include <gtest/gtest.h>

#include "Section.h"
#include "handheld.h"

namespace {

TEST(Objects, AreNotSelectedIntoTwoContexts) {
  const Section section(4, 4);
  const HDC other = CreateCompatibleDC(nullptr);
  EXPECT_EQ(nullptr, SelectObject(other, section.bitmap));
  DeleteDC(other);
}

TEST(Objects, LiveOnWhileSelected) {
  const Section section(4, -4);
  const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 0));
  const HGDIOBJ old = SelectObject(section.dc, brush);
  EXPECT_TRUE(DeleteObject(brush));
  SelectObject(section.dc, GetStockObject(NULL_PEN));
  Rectangle(section.dc, 0, 0, 4, 4);
  EXPECT_EQ(RGB(255, 0, 0), section.At(1, 1));
  EXPECT_EQ(brush, SelectObject(section.dc, old));
  EXPECT_FALSE(DeleteObject(brush));
}

TEST(Objects, MisuseIsRefused) {
  EXPECT_FALSE(DeleteDC(nullptr));
  EXPECT_FALSE(DeleteObject(nullptr));
  EXPECT_EQ(nullptr, SelectObject(nullptr, GetStockObject(BLACK_PEN)));
  EXPECT_FALSE(LineTo(nullptr, 1, 1));
  EXPECT_EQ(CLR_INVALID, SetPixel(nullptr, 0, 0, 0));
  EXPECT_EQ(CLR_INVALID, SetTextColor(nullptr, 0));
  const HDC dc = CreateCompatibleDC(nullptr);
  EXPECT_EQ(nullptr, SelectObject(dc, nullptr));
  EXPECT_EQ(nullptr, SelectObject(dc, dc));
  EXPECT_TRUE(DeleteDC(dc));
  EXPECT_FALSE(DeleteDC(dc));
  EXPECT_EQ(nullptr, CreateCompatibleDC(dc));
}

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
