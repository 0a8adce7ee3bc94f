#include "pages/Session.h"

namespace app {

Session::SmsChoices Session::GetSmsChoices() const {
  return {engine.GetSmsRecipients(), engine.GetSmsText(), engine.GetSMSInterval(),
          engine.IsSMSEnabled() != 0, engine.IsSMSSendIfChanged() != 0};
}

void Session::SetSmsChoices(const SmsChoices& choices) const {
  engine.SetSMSParams(choices.recipients.c_str(), choices.text.c_str(), choices.intervalMinutes,
                      choices.isAutomatic ? 1 : 0, choices.onlyAfterMoving ? 1 : 0);
}

void Session::ResetAll() const {
  for (int sensor = 0; sensor < engine.GetSensorsCount(); ++sensor) {
    engine.ResetSensorValue(sensor);
  }
}

}  // namespace app
