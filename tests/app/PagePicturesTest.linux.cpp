// All pages in all sizes and both languages, compared with pictures that were looked at.

#include <stdlib.h>

#include <algorithm>
#include <vector>

#include "DirectApplication.linux.h"
#include "PageTour.h"
#include "widgets/Golden.h"

namespace app {

namespace {

using handheld::Pixels;

struct Size {
  int width;
  int height;
  int dpi;
};

struct Shown {
  Size size;
  bool isRussian;
};

/// Pages side by side, six in a row.
class Sheet {
 public:
  explicit Sheet(const Size& size) : size(size) {}

  void Add(const Pixels& page) { pages.push_back(page); }

  Pixels Join() const {
    constexpr int COLUMNS = 6;
    constexpr int SPACE = 4;
    constexpr std::uint32_t GREY = 0x00808080;
    const int lines = (static_cast<int>(pages.size()) + COLUMNS - 1) / COLUMNS;
    Pixels sheet;
    sheet.width = COLUMNS * (size.width + SPACE);
    sheet.height = lines * (size.height + SPACE);
    sheet.rows.assign(static_cast<std::size_t>(sheet.width * sheet.height), GREY);
    int index = 0;
    for (const Pixels& page : pages) {
      const int left = index % COLUMNS * (size.width + SPACE);
      const int top = index / COLUMNS * (size.height + SPACE);
      for (int y = 0; y < page.height; ++y) {
        std::copy_n(page.rows.begin() + y * page.width, page.width,
                    sheet.rows.begin() + (top + y) * sheet.width + left);
      }
      ++index;
    }
    return sheet;
  }

 private:
  Size size;
  std::vector<Pixels> pages;
};

class PagePictures : public PageTour, public testing::WithParamInterface<Shown> {
 protected:
  PagePictures() {
    setenv("FONTCONFIG_FILE", FONTS_FILE, 1);
    const Size size = GetParam().size;
    handheld::SetScreen(size.width, size.height, size.dpi);
    if (GetParam().isRussian) {
      device->SetRussian();
    }
  }

  ~PagePictures() override { handheld::SetScreen(240, 320, 96); }

  int CountClippedTexts() const {
    return static_cast<const DirectApplication&>(*application).CountClippedTexts();
  }

  void Take(const char*) override {
    EXPECT_EQ(0, CountClippedTexts());
    sheet.Add(handheld::WindowPixels(GetWindow()));
  }

  Sheet sheet{GetParam().size};
};

constexpr Size SIZES[] = {
    {176, 220, 96}, {240, 320, 96}, {320, 240, 96}, {480, 640, 192}, {800, 480, 96}};

std::vector<Shown> AllShown() {
  std::vector<Shown> all;
  for (const Size& size : SIZES) {
    all.push_back({size, false});
    all.push_back({size, true});
  }
  return all;
}

std::string NameOf(const Shown& shown) {
  return std::to_string(shown.size.width) + "x" + std::to_string(shown.size.height) +
         (shown.isRussian ? "-RUS" : "-ENU");
}

TEST_P(PagePictures, AreThoseThatWereLookedAt) {
  StartWithPort(GetParam().size.width, GetParam().size.height);
  GoThroughPages();
  ferolin::ExpectGolden("pages-" + NameOf(GetParam()), sheet.Join());
}

/// Rows of a picture from `top` on.
Pixels CutOut(const Pixels& picture, int top, int height) {
  const auto first = picture.rows.begin() + top * picture.width;
  return {picture.width, height, {first, first + height * picture.width}};
}

TEST_P(PagePictures, TellThatTheReceiverIsSilent) {
  const Size& size = GetParam().size;
  const int unit = std::max(size.dpi, 96 * std::min(size.width, size.height) / 320);
  const int height = 44 * unit / 96;
  const int top = (size.height - height) / 2;
  StartWithPort(size.width, size.height);
  SendFirstPosition();
  device->SetTimeRate(60);
  ASSERT_TRUE(
      WaitUntil([&] { return GetPixel(size.width / 2, top) == DARK_THEME.warning; }, 60'000));
  EXPECT_EQ(0, CountClippedTexts());
  ferolin::ExpectGolden("silence-" + NameOf(GetParam()),
                        CutOut(handheld::WindowPixels(GetWindow()), top, height));
}

INSTANTIATE_TEST_SUITE_P(Sizes, PagePictures, testing::ValuesIn(AllShown()), [](const auto& shown) {
  std::string name = NameOf(shown.param);
  std::erase(name, '-');
  return name;
});

}  // namespace

}  // namespace app
