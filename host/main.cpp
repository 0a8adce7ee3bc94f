// ferolin-host, a GPS speedometer on Linux.

#include "base/StandardStreams.h"
#include "run/Application.h"

int main(int argc, char** argv) {
  host::ReserveStandardStreams();
  return host::RunApplication(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
