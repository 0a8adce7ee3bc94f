// Lines end in a line feed alone, as CTest expects them of a list of cases.

#include <fcntl.h>
#include <io.h>

namespace {

const int PREVIOUS_MODE = _setmode(1, _O_BINARY);

}  // namespace
