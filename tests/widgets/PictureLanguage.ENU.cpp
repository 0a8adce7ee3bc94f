#include "widgets/PictureLanguage.h"

namespace ferolin {

constinit const bool IS_RUSSIAN = false;

}  // namespace ferolin
