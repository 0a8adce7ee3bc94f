// No text at all.
#pragma once

#include "outputs/Output.h"

namespace host {

/// For runs whose window shows everything.
class NoOutput : public Output {
 public:
  void Show(const Update& /*update*/) override {}
  void Finish(const Update& /*last*/, const Readouts& /*registry*/) override {}
};

}  // namespace host
