#include "render/InvertFlags.h"

namespace ferolin {

InvertFlags theInvertFlags;

}  // namespace ferolin
