// Draws each page once in a window that tests/device/count/CounterPlugin.cpp sees, and prints what
// the window's number stands for.

#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>

#include "PageTour.h"
#include "device/count/Counter.h"

namespace app {

namespace {

class PageCount : public PageTour {
 protected:
  void Take(const char* page) override {
    Tell(counter::BEGIN, 0, 0);
    InvalidateRect(GetWindow(), nullptr, FALSE);
    Pump();
    Tell(counter::END, ++windows, 1);
    std::printf("window %u: %s\n", windows, page);
  }

 private:
  static void Tell(counter::Request request, unsigned first, unsigned second) {
    syscall(SYS_sched_yield, counter::MARK, request, first, second);
  }

  unsigned windows = 0;
};

TEST_F(PageCount, GoesThroughAllPages) {
  StartWithPort(240, 320);
  GoThroughPages();
}

}  // namespace

}  // namespace app
