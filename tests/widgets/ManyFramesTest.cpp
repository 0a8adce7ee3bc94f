// A day of driving: what the views take from the system they give back.

#include <ferolin.h>
#include <unistd.h>

#include <fstream>

#include "widgets/ViewTest.h"

namespace ferolin {
namespace {

long ResidentKilobytes() {
  long size = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

class ManyFrames : public ViewTest {
 protected:
  void DrawAllViews(int frames) {
    for (int frame = 0; frame < frames; ++frame) {
      Draw(frame % GetWidgetsCount());
    }
  }
};

TEST_F(ManyFrames, LeaveHandlesAndMemoryFlat) {
  Load();
  Open(240, 320);
  Drive("120000", 0);
  Drive("120010", 87, 45);
  DrawAllViews(200);
  const int objects = handheld::GdiObjectsAlive();
  const int handles = handheld::HandlesAlive();
  const long memory = ResidentKilobytes();
  DrawAllViews(FRAMES);
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  EXPECT_EQ(handles, handheld::HandlesAlive());
  EXPECT_LT(ResidentKilobytes() - memory, MEMORY_SLACK_KB);
}

}  // namespace
}  // namespace ferolin
