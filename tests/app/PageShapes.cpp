// Prints a number for the picture of each page, without its texts: "page <size> <language> <name>
// <number>". The numbers have to be the same in all homes; same_pages_test.py compares them.

#include <cstdio>

#include "PageTour.h"

namespace app {

namespace {

struct Shown {
  int width;
  int height;
  bool isRussian;
};

std::uint64_t HashOf(const e2e::Device::Picture& picture) {
  constexpr std::uint64_t PRIME = 0x100000001B3;
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const std::uint32_t pixel : picture.pixels) {
    hash = (hash ^ pixel) * PRIME;
  }
  return hash;
}

class PageShapes : public PageTour, public testing::WithParamInterface<Shown> {
 protected:
  void Take(const char* page) override {
    const Shown& shown = GetParam();
    std::printf("page %ix%i %s %s %016llx\n", shown.width, shown.height,
                shown.isRussian ? "RUS" : "ENU", page,
                static_cast<unsigned long long>(HashOf(GetPicture())));
  }
};

TEST_P(PageShapes, AreTheSame) {
  if (GetParam().isRussian) {
    device->SetRussian();
  }
  StartWithPort(GetParam().width, GetParam().height);
  GoThroughPages();
}

INSTANTIATE_TEST_SUITE_P(Sizes, PageShapes,
                         testing::Values(Shown{176, 220, true}, Shown{240, 320, false},
                                         Shown{320, 240, false}, Shown{480, 640, false},
                                         Shown{800, 480, false}));

}  // namespace

}  // namespace app
