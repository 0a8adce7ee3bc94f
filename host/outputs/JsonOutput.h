// One line of JSON for each update.
#pragma once

#include "outputs/Output.h"
#include "outputs/StandardOutput.h"

namespace host {

class JsonOutput : public Output {
 public:
  explicit JsonOutput(StandardOutput& output) : output(output) {}

  void Show(const Update& update) override;
  void Finish(const Update& last, const Readouts& registry) override;

 private:
  StandardOutput& output;
};

}  // namespace host
