// The views give back to the system what they take from it.

#include <ferolin.h>
#include <malloc.h>

#include <cstddef>

#include "widgets/ViewTest.h"

/// Null in a program without sanitizers.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace ferolin {
namespace {

/// Bytes that the program holds at the moment. Sanitizers have a heap of their own.
std::size_t BytesAllocated() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) {
    return __sanitizer_get_current_allocated_bytes();
  }
  const struct mallinfo2 heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

class ManyFrames : public ViewTest {
 protected:
  void DrawAllViews(int frames) {
    for (int frame = 0; frame < frames; ++frame) {
      Draw(frame % FEROLIN_VIEW_COUNT);
    }
  }
};

TEST_F(ManyFrames, LeaveHandlesAndMemoryFlat) {
  constexpr int FRAMES = 2000;
  Load();
  Open(240, 320);
  Drive("120000", 0);
  Drive("120010", 87, 45);
  DrawAllViews(200);
  const int objects = handheld::GdiObjectsAlive();
  const int handles = handheld::HandlesAlive();
  const std::size_t bytes = BytesAllocated();
  DrawAllViews(FRAMES);
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  EXPECT_EQ(handles, handheld::HandlesAlive());
  EXPECT_LT(BytesAllocated(), bytes + FRAMES) << "less than a byte a frame";
}

}  // namespace
}  // namespace ferolin
