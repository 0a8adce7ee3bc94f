#include "pages/PageRows.h"
#include "pages/RowTools.h"
#include "pages/Session.h"

namespace app {

namespace {

WideString NameReadout(const Session& session, int sensor) {
  return session.engine.GetNameOfSensor(sensor);
}
WideString DescribeReadout(const Session& session, int sensor) {
  const WideString value = session.engine.GetValueOfSensor(sensor);
  constexpr LPCWSTR MISSING = TEXT("\u2014");
  return value.empty() ? MISSING : value;
}
void ResetReadout(Session& session, int sensor, int) {
  session.engine.ResetSensorValue(sensor);
}
void ResetAll(Session& session, int, int) {
  session.ResetAll();
}

constexpr Row READOUT_ROW = {
    .kind = RowKind::READOUT, .getLabel = &NameReadout, .getText = &DescribeReadout};
constexpr Row RESET_ALL_ROW = {
    .kind = RowKind::ACTION, .label = Word::RESET_ALL, .set = &ResetAll, .asksAgain = true};
constexpr Row RESET_ROW = {.kind = RowKind::ACTION,
                           .getLabel = &NameReadout,
                           .getText = &DescribeReadout,
                           .set = &ResetReadout,
                           .asksAgain = true};

}  // namespace

Rows MakeReadoutRows(const Session& session) {
  Rows rows;
  for (int sensor = 0; sensor < session.engine.GetSensorsCount(); ++sensor) {
    rows.push_back(WithArgument(READOUT_ROW, sensor));
  }
  return rows;
}

Rows MakeResetRows(const Session& session) {
  Rows rows = {RESET_ALL_ROW, {.kind = RowKind::GAP}};
  for (int sensor = 0; sensor < session.engine.GetSensorsCount(); ++sensor) {
    if (session.engine.IsSensorSaveable(sensor) != 0) {
      rows.push_back(WithArgument(RESET_ROW, sensor));
    }
  }
  return rows;
}

}  // namespace app
