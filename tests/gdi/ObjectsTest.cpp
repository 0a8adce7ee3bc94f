#include <gtest/gtest.h>

#include "Section.h"

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

}  // namespace
