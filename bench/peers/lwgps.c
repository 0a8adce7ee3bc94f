// Cuts, checks and parses GGA, GSA, GSV and RMC sentences with lwgps, a block of bytes at a time.
#include <lwgps/lwgps.h>

#include "timing.h"

static double parse(const struct recording* drive) {
  enum { BLOCK = 2048 };
  lwgps_t fix;
  double sum = 0;
  lwgps_init(&fix);
  for (size_t start = 0; start < drive->size; start += BLOCK) {
    const size_t rest = drive->size - start;
    lwgps_process(&fix, drive->bytes + start, rest < BLOCK ? rest : BLOCK);
    sum += fix.speed;
  }
  return sum;
}

int main(int count, char** arguments) {
  return measure(count, arguments, parse);
}
