// One line of JSON for each update.
#pragma once

#include "engine/EngineLibrary.h"
#include "outputs/Output.h"
#include "outputs/StandardOutput.h"

namespace host {

class JsonOutput : public Output {
 public:
  /// Both outlive the output.
  JsonOutput(StandardOutput& output, const EngineLibrary& engine)
      : output(output), engine(engine) {}

  void Show(const Update& update) override;
  void Finish(const Update& last, const Readouts& registry) override;

 private:
  StandardOutput& output;
  const EngineLibrary& engine;
};

}  // namespace host
