#pragma once

#include <vector>

#include "e2e/ImportDoubles.windows.h"

namespace app {

/// What the application gets in place of the system's calls: the engine's doubles, the device's
/// ticks, and windows of this process only, as other tests run at the same time.
std::vector<e2e::ImportDouble> MakeApplicationDoubles();

/// A double of one program alone, made before its `main` begins.
class AddedDouble {
 public:
  AddedDouble(const e2e::ImportDouble& added);
};

}  // namespace app
