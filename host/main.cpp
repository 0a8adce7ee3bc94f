// ferolin-host, a GPS speedometer on Linux.

#include "base/StandardStreams.h"
#include "run/Application.h"

int main(int argc, char** argv) {
  host::ReserveStandardStreams();
  const int names = argc > 0 ? 1 : 0;
  return host::RunApplication(names > 0 ? argv[0] : "",
                              std::vector<std::string>(argv + names, argv + argc));
}
