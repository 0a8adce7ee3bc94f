#include "run/SpeedLimits.h"

#include <algorithm>

namespace host {

namespace {

constexpr int SILENT = 0;
constexpr int SOUNDING = 1;

}  // namespace

void ApplySpeedLimits(const EngineLibrary::Functions& engine, const Options& options) {
  if (options.beepOnZero) {
    engine.SetBeepOnZero(*options.beepOnZero ? 1 : 0);
  }
  if (!options.limits) {
    return;
  }
  int event = 0;
  for (const Options::Limit& limit : *options.limits) {
    engine.SetSpeedEvent(event++, limit.kmh, limit.band, SOUNDING);
  }
  for (; event < engine.GetSpeedEventsCount(); ++event) {
    engine.SetSpeedEvent(event, engine.GetEventSpeedLimit(event), engine.GetEventSpeedInter(event),
                         SILENT);
  }
}

}  // namespace host
