// Results and effects of drawing calls, misuse included.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "Section.h"

namespace {

HGDIOBJ NoSuchObject() {
  return reinterpret_cast<HGDIOBJ>(static_cast<LONG_PTR>(0x1234));
}

BITMAP Describe(HGDIOBJ bitmap) {
  BITMAP description = {};
  EXPECT_EQ(static_cast<int>(sizeof(description)),
            GetObjectW(bitmap, sizeof(description), &description));
  return description;
}

/// Deletes the object at the end of the scope.
class Owned {
 public:
  explicit Owned(HGDIOBJ owned) : object(owned) {}
  ~Owned() { DeleteObject(object); }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  HGDIOBJ Get() const { return object; }

 private:
  HGDIOBJ object;
};

TEST(DeletedObjects, GoWithTheLastContextThatHasThemSelected) {
  const HDC first = CreateCompatibleDC(nullptr);
  const HDC second = CreateCompatibleDC(nullptr);
  const HBRUSH brush = CreateSolidBrush(RED);
  const HGDIOBJ old = SelectObject(first, brush);
  SelectObject(second, brush);
  EXPECT_TRUE(DeleteObject(brush));
  EXPECT_EQ(brush, SelectObject(first, old));
  // Still selected into the second context.
  EXPECT_EQ(brush, SelectObject(second, brush));
  EXPECT_TRUE(DeleteDC(second));
  EXPECT_EQ(nullptr, SelectObject(first, brush));
  EXPECT_FALSE(DeleteObject(brush));
  DeleteDC(first);
}

TEST(DeletedObjects, BitmapsKeepTheirPixelsWhileSelected) {
  Section section(4, -4);
  SetPixel(section.dc, 1, 1, RED);
  EXPECT_TRUE(DeleteObject(section.bitmap));
  EXPECT_EQ(RED, section.At(1, 1));
  EXPECT_EQ(4, Describe(section.bitmap).bmWidth);
}

TEST(DeletedObjects, TheSystemsOwnStay) {
  const HGDIOBJ pen = GetStockObject(BLACK_PEN);
  EXPECT_TRUE(DeleteObject(pen));
  const Section section(4, 4);
  EXPECT_EQ(pen, SelectObject(section.dc, GetStockObject(NULL_PEN)));
  EXPECT_EQ(GetStockObject(NULL_PEN), SelectObject(section.dc, pen));
}

TEST(Contexts, AreDeletedAsObjectsToo) {
  const HDC dc = CreateCompatibleDC(nullptr);
  EXPECT_TRUE(DeleteObject(dc));
  EXPECT_FALSE(DeleteDC(dc));
}

TEST(Contexts, LetGoOfTheirBitmapWhenDeleted) {
  const BITMAPINFO info = SectionInfo(4, 4, 32);
  void* bits = nullptr;
  const Owned bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  const HDC first = CreateCompatibleDC(nullptr);
  SelectObject(first, bitmap.Get());
  const HDC second = CreateCompatibleDC(nullptr);
  EXPECT_EQ(nullptr, SelectObject(second, bitmap.Get()));
  DeleteDC(first);
  EXPECT_NE(nullptr, SelectObject(second, bitmap.Get()));
  DeleteDC(second);
}

TEST(Contexts, OfTheScreenTakeNoBitmap) {
  const HDC screen = GetDC(nullptr);
  const Owned bitmap(CreateCompatibleBitmap(screen, 4, 4));
  EXPECT_EQ(nullptr, SelectObject(screen, bitmap.Get()));
  EXPECT_EQ(1, ReleaseDC(nullptr, screen));
}

TEST(Contexts, InMemoryAreNotReleased) {
  const HDC dc = CreateCompatibleDC(nullptr);
  EXPECT_EQ(0, ReleaseDC(nullptr, dc));
  EXPECT_TRUE(DeleteDC(dc));
}

TEST(Contexts, OfNothingHaveNoProperties) {
  EXPECT_EQ(0, GetDeviceCaps(nullptr, LOGPIXELSX));
  EXPECT_EQ(0, GetDeviceCaps(static_cast<HDC>(NoSuchObject()), LOGPIXELSX));
  EXPECT_EQ(nullptr, CreateCompatibleDC(static_cast<HDC>(NoSuchObject())));
  EXPECT_EQ(nullptr, GetDC(static_cast<HWND>(NoSuchObject())));
}

TEST(Contexts, StartWithTheSystemsOwnObjectsAndABitmapOfOnePixel) {
  const HDC dc = CreateCompatibleDC(nullptr);
  EXPECT_EQ(GetStockObject(BLACK_PEN), SelectObject(dc, GetStockObject(NULL_PEN)));
  EXPECT_EQ(GetStockObject(WHITE_BRUSH), SelectObject(dc, GetStockObject(NULL_BRUSH)));
  const BITMAPINFO info = SectionInfo(4, 4, 16);
  const Owned section(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
  const BITMAP first = Describe(SelectObject(dc, section.Get()));
  EXPECT_EQ(1, first.bmWidth);
  EXPECT_EQ(1, first.bmHeight);
  EXPECT_EQ(1, first.bmBitsPixel);
  DeleteDC(dc);
}

TEST(Bitmaps, AreDescribedInWholeOrNotAtAll) {
  const Section section(3, -5, 16);
  BITMAP description = {};
  constexpr int SIZE = sizeof(description);
  EXPECT_EQ(SIZE, GetObjectW(section.bitmap, 0, nullptr));
  EXPECT_EQ(0, GetObjectW(section.bitmap, SIZE - 1, &description));
  EXPECT_EQ(SIZE, GetObjectW(section.bitmap, SIZE + 8, &description));
  EXPECT_EQ(3, description.bmWidth);
  EXPECT_EQ(5, description.bmHeight);
  // Three pixels of two bytes, filled up to a multiple of four.
  EXPECT_EQ(8, description.bmWidthBytes);
  EXPECT_EQ(1, description.bmPlanes);
  EXPECT_EQ(16, description.bmBitsPixel);
  EXPECT_EQ(section.Words(), description.bmBits);
  EXPECT_EQ(0, GetObjectW(nullptr, SIZE, &description));
}

TEST(Bitmaps, AreNotMadeOfNonsense) {
  const struct {
    LONG width, height;
    WORD bitsPerPixel;
  } cases[] = {{0, 4, 16}, {4, 0, 16}, {-4, 4, 16}, {4, 4, 17}, {100000, 100000, 16}};
  for (const auto& nonsense : cases) {
    const BITMAPINFO info = SectionInfo(nonsense.width, nonsense.height, nonsense.bitsPerPixel);
    void* bits = &bits;
    EXPECT_EQ(nullptr, CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    EXPECT_EQ(nullptr, bits) << nonsense.width << " " << nonsense.height;
  }
  BITMAPINFO info = SectionInfo(4, 4, 16);
  info.bmiHeader.biPlanes = 2;
  EXPECT_EQ(nullptr, CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
  info = SectionInfo(4, 4, 16);
  info.bmiHeader.biSize = 39;
  EXPECT_EQ(nullptr, CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
}

TEST(CompatibleBitmaps, ArePrivateToTheSystem) {
  const HDC screen = GetDC(nullptr);
  const Owned bitmap(CreateCompatibleBitmap(screen, 5, 6));
  const BITMAP description = Describe(bitmap.Get());
  EXPECT_EQ(32, description.bmBitsPixel);
  EXPECT_EQ(nullptr, description.bmBits);
  ReleaseDC(nullptr, screen);
}

TEST(CompatibleBitmaps, OfNoSizeHaveOnePixel) {
  const HDC screen = GetDC(nullptr);
  const Owned bitmap(CreateCompatibleBitmap(screen, 0, 4));
  const BITMAP description = Describe(bitmap.Get());
  EXPECT_EQ(1, description.bmWidth);
  EXPECT_EQ(1, description.bmHeight);
  EXPECT_EQ(1, description.bmBitsPixel);
  ReleaseDC(nullptr, screen);
  EXPECT_EQ(nullptr, CreateCompatibleBitmap(nullptr, 4, 4));
}

TEST(CompatibleBitmaps, AreLikeWhatIsSelected) {
  const Section section(4, 4, 16);
  const Owned bitmap(CreateCompatibleBitmap(section.dc, 5, 6));
  const BITMAP description = Describe(bitmap.Get());
  EXPECT_EQ(16, description.bmBitsPixel);
  EXPECT_EQ(12, description.bmWidthBytes);
  EXPECT_NE(nullptr, description.bmBits);
  // A new context has one bit a pixel.
  const HDC fresh = CreateCompatibleDC(section.dc);
  const Owned monochrome(CreateCompatibleBitmap(fresh, 4, 4));
  EXPECT_EQ(1, Describe(monochrome.Get()).bmBitsPixel);
  DeleteDC(fresh);
}

TEST(Regions, AreAnsweredByTheirKind) {
  const Section section(8, 8);
  const Owned some(CreateRectRgn(1, 1, 3, 3));
  const Owned none(CreateRectRgn(3, 3, 3, 5));
  const Owned turned(CreateRectRgn(6, 7, 2, 3));
  const auto clip = [&](const Owned& region) {
    return SelectClipRgn(section.dc, static_cast<HRGN>(region.Get()));
  };
  EXPECT_EQ(SIMPLEREGION, clip(some));
  EXPECT_EQ(NULLREGION, clip(none));
  EXPECT_EQ(SIMPLEREGION, clip(turned));
  EXPECT_EQ(SIMPLEREGION, SelectClipRgn(section.dc, nullptr));
  EXPECT_EQ(RGN_ERROR, SelectClipRgn(nullptr, static_cast<HRGN>(some.Get())));
  EXPECT_EQ(RGN_ERROR, SelectClipRgn(section.dc, static_cast<HRGN>(NoSuchObject())));
  // SelectObject gives the same results.
  EXPECT_EQ(SIMPLEREGION, reinterpret_cast<LONG_PTR>(SelectObject(section.dc, some.Get())));
  EXPECT_EQ(NULLREGION, reinterpret_cast<LONG_PTR>(SelectObject(section.dc, none.Get())));
}

TEST(Pixels, OutsideAndClippedAreAnsweredAsIfTheyWereSet) {
  const Section section(4, -4);
  EXPECT_EQ(RED, SetPixel(section.dc, 100, 0, RED));
  EXPECT_EQ(RED, SetPixel(section.dc, -1, 0, RED));
  EXPECT_EQ(CLR_INVALID, GetPixel(section.dc, 100, 0));
  const Owned region(CreateRectRgn(2, 2, 4, 4));
  SelectClipRgn(section.dc, static_cast<HRGN>(region.Get()));
  EXPECT_EQ(RED, SetPixel(section.dc, 0, 0, RED));
  SelectClipRgn(section.dc, nullptr);
  EXPECT_EQ(0U, section.At(0, 0));
}

TEST(Lines, LeaveThePositionWhereTheyEndButPolylinesDoNot) {
  const Section section(8, 8);
  POINT previous = {7, 7};
  EXPECT_TRUE(MoveToEx(section.dc, 5, 6, &previous));
  EXPECT_EQ(0, previous.x);
  EXPECT_TRUE(LineTo(section.dc, 3, 4));
  const POINT points[] = {{1, 1}, {2, 2}};
  EXPECT_TRUE(Polyline(section.dc, points, 2));
  EXPECT_TRUE(MoveToEx(section.dc, 0, 0, &previous));
  EXPECT_EQ(3, previous.x);
  EXPECT_EQ(4, previous.y);
  EXPECT_FALSE(Polyline(section.dc, points, 0));
  EXPECT_FALSE(Polyline(section.dc, points, -1));
  EXPECT_FALSE(Polyline(nullptr, points, 2));
}

TEST(EmptyShapes, Succeed) {
  const Section section(8, 8);
  EXPECT_TRUE(Ellipse(section.dc, 1, 1, 1, 5));
  EXPECT_TRUE(Rectangle(section.dc, 1, 1, 1, 1));
  EXPECT_TRUE(RoundRect(section.dc, 1, 1, 1, 1, 3, 3));
  EXPECT_FALSE(Ellipse(nullptr, 1, 1, 5, 5));
  EXPECT_FALSE(Rectangle(nullptr, 1, 1, 5, 5));
  EXPECT_FALSE(RoundRect(nullptr, 1, 1, 5, 5, 3, 3));
}

TEST(Fills, AlwaysSayThatTheyDid) {
  const Section section(8, -8);
  const Owned brush(CreateSolidBrush(GREEN));
  const RECT rect = {0, 0, 2, 2};
  EXPECT_EQ(1, FillRect(nullptr, &rect, static_cast<HBRUSH>(brush.Get())));
  EXPECT_EQ(1, FillRect(section.dc, &rect, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))));
  EXPECT_EQ(0U, section.At(0, 0));
}

TEST(Fills, WithoutABrushUseTheSelectedOne) {
  const Section section(8, -8);
  const Owned brush(CreateSolidBrush(GREEN));
  const HGDIOBJ old = SelectObject(section.dc, brush.Get());
  const RECT rect = {0, 0, 2, 2};
  EXPECT_EQ(1, FillRect(section.dc, &rect, nullptr));
  EXPECT_EQ(GREEN, section.At(1, 1));
  SelectObject(section.dc, old);
}

TEST(Fills, TheWrongWayRoundIncludeTheirStart) {
  const Section section(8, -8);
  const Owned brush(CreateSolidBrush(GREEN));
  const RECT rect = {2, 2, 0, 0};
  FillRect(section.dc, &rect, static_cast<HBRUSH>(brush.Get()));
  EXPECT_EQ(GREEN, section.At(1, 1));
  EXPECT_EQ(GREEN, section.At(2, 2));
  EXPECT_EQ(0U, section.At(0, 0));
}

TEST(Copies, OfNothingSucceed) {
  const Section target(8, 8);
  const Section source(4, 4);
  EXPECT_TRUE(BitBlt(target.dc, 0, 0, 0, 4, source.dc, 0, 0, SRCCOPY));
  EXPECT_TRUE(BitBlt(target.dc, 0, 0, 4, 4, source.dc, 100, 100, SRCCOPY));
  EXPECT_TRUE(BitBlt(target.dc, 100, 0, 4, 4, source.dc, 0, 0, SRCCOPY));
  EXPECT_TRUE(StretchBlt(target.dc, 0, 0, 4, 4, source.dc, 0, 0, 0, 0, SRCCOPY));
  EXPECT_TRUE(StretchBlt(target.dc, 0, 0, 0, 0, source.dc, 0, 0, 4, 4, SRCCOPY));
}

/// What answers depend on: where, how large, from which part.
struct BlendCase {
  int x, width, sourceX, sourceWidth;
  BOOL answer;
};

TEST(Blending, AnswersWhetherItsRectanglesMakeSense) {
  const Section target(8, 8);
  const Section source(4, 4);
  constexpr BLENDFUNCTION BLEND = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  for (const BlendCase& blend : {
           BlendCase{0, 4, 0, 4, TRUE},
           {20, 4, 0, 4, TRUE},
           {0, 0, 0, 4, TRUE},
           {0, 4, 0, 0, TRUE},
           {0, 4, 0, 5, FALSE},
           {0, 2, -1, 2, FALSE},
           {0, -4, 0, 4, FALSE},
       }) {
    EXPECT_EQ(blend.answer, AlphaBlend(target.dc, blend.x, 0, blend.width, 4, source.dc,
                                       blend.sourceX, 0, blend.sourceWidth, 4, BLEND))
        << blend.x << " " << blend.width << " " << blend.sourceX << " " << blend.sourceWidth;
  }
  EXPECT_TRUE(AlphaBlend(target.dc, 0, 0, 4, 4, target.dc, 4, 4, 4, 4, BLEND));
  EXPECT_FALSE(AlphaBlend(target.dc, 0, 0, 4, 4, target.dc, 2, 2, 4, 4, BLEND));
}

TEST(Blending, ByEachPixelNeedsThirtyTwoBits) {
  const Section target(8, 8);
  const Section small(4, 4, 16);
  EXPECT_FALSE(
      AlphaBlend(target.dc, 0, 0, 4, 4, small.dc, 0, 0, 4, 4, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA}));
  EXPECT_TRUE(AlphaBlend(target.dc, 0, 0, 4, 4, small.dc, 0, 0, 4, 4, {AC_SRC_OVER, 0, 255, 0}));
}

TEST(Pens, OfNoStyleAreTheSystemsOwn) {
  EXPECT_EQ(GetStockObject(NULL_PEN), CreatePen(PS_NULL, 3, RED));
}

TEST(StockObjects, AreNullForNumbersThatNameNone) {
  EXPECT_EQ(nullptr, GetStockObject(-1));
  EXPECT_EQ(nullptr, GetStockObject(9));
  EXPECT_EQ(nullptr, GetStockObject(99));
}

TEST(TextState, AnswersWhatWasThereBefore) {
  const Section section(4, 4);
  EXPECT_EQ(OPAQUE, SetBkMode(section.dc, TRANSPARENT));
  EXPECT_EQ(TRANSPARENT, SetBkMode(section.dc, OPAQUE));
  EXPECT_EQ(0, SetBkMode(section.dc, 3));
  EXPECT_EQ(0, SetBkMode(nullptr, TRANSPARENT));
  EXPECT_EQ(RGB(0, 0, 0), SetTextColor(section.dc, RED));
  EXPECT_EQ(RED, SetTextColor(section.dc, GREEN));
  EXPECT_EQ(nullptr, CreateFontIndirectW(nullptr));
}

/// Width of a text in Liberation Serif with an em square of 256 pixels.
LONG WidthOf(LPCWSTR text, LONG weight, UINT format = 0) {
  const Section section(4, 4);
  LOGFONTW description = {};
  description.lfHeight = -256;
  description.lfWeight = weight;
  constexpr WCHAR FACE[] = TEXT("Liberation Serif");
  std::copy(std::begin(FACE), std::end(FACE), description.lfFaceName);
  const HFONT font = CreateFontIndirectW(&description);
  const HGDIOBJ before = SelectObject(section.dc, font);
  RECT rect = {};
  DrawTextW(section.dc, text, -1, &rect, DT_CALCRECT | format);
  SelectObject(section.dc, before);
  DeleteObject(font);
  return rect.right;
}

TEST(TextWeight, ChoosesTheBoldFace) {
  // "n" is 1024 units of 2048 wide in the regular font, 1139 in the bold one.
  EXPECT_EQ(128, WidthOf(TEXT("n"), FW_NORMAL));
  EXPECT_EQ(142, WidthOf(TEXT("n"), FW_BOLD));
  EXPECT_EQ(128, WidthOf(TEXT("n"), 550));
  EXPECT_EQ(142, WidthOf(TEXT("n"), 551));
}

TEST(TextState, AmpersandsAreCharactersWhenAskedFor) {
  EXPECT_EQ(128, WidthOf(TEXT("&n"), FW_NORMAL));
  EXPECT_EQ(WidthOf(TEXT("&&n"), FW_NORMAL), WidthOf(TEXT("&n"), FW_NORMAL, DT_NOPREFIX));
  EXPECT_GT(WidthOf(TEXT("&n"), FW_NORMAL, DT_NOPREFIX), 128);
}

TEST(Drawing, CanBeCompleted) {
  EXPECT_TRUE(GdiFlush());
}

TEST(TextState, NoTextTakesNoRoom) {
  const Section section(4, 4);
  RECT rect = {};
  EXPECT_EQ(0, DrawTextW(section.dc, nullptr, -1, &rect, DT_CALCRECT));
  EXPECT_EQ(0, AddFontResourceW(TEXT("\\nofile.ttf")));
  EXPECT_FALSE(RemoveFontResourceW(TEXT("\\nofile.ttf")));
}

}  // namespace
