#include "pages/PageRows.h"
#include "pages/RowTools.h"
#include "pages/Session.h"

namespace app {

namespace {

int IsLimitOn(const Session& session, int limit) {
  return session.engine.GetUseEventSound(limit);
}
void ChangeLimit(const Session& session, int limit, int speed, int band, int isOn) {
  session.engine.SetSpeedEvent(limit, speed, band, isOn);
}
void SetLimitOn(Session& session, int limit, int value) {
  ChangeLimit(session, limit, session.engine.GetEventSpeedLimit(limit),
              session.engine.GetEventSpeedInter(limit), value);
}
WideString DescribeLimit(const Session& session, int limit) {
  return WithUnit(session.engine.GetEventSpeedLimit(limit), Word::KMH);
}
void StepLimit(Session& session, int limit, int direction) {
  constexpr int STEP = 5;
  constexpr int HIGHEST = 300;
  ChangeLimit(session, limit,
              Step(session.engine.GetEventSpeedLimit(limit), direction, STEP, STEP, HIGHEST),
              session.engine.GetEventSpeedInter(limit), session.engine.GetUseEventSound(limit));
}
/// The end of the band says more than its width.
WideString DescribeBand(const Session& session, int limit) {
  return WithUnit(
      session.engine.GetEventSpeedLimit(limit) + session.engine.GetEventSpeedInter(limit),
      Word::KMH);
}
/// The engine does not load a limit without a band.
void StepBand(Session& session, int limit, int direction) {
  constexpr int STEP = 5;
  constexpr int WIDEST = 100;
  ChangeLimit(session, limit, session.engine.GetEventSpeedLimit(limit),
              Step(session.engine.GetEventSpeedInter(limit), direction, STEP, STEP, WIDEST),
              session.engine.GetUseEventSound(limit));
}

constexpr Row LIMIT_ROWS[] = {
    {.kind = RowKind::SWITCH, .get = &IsLimitOn, .set = &SetLimitOn},
    {.kind = RowKind::STEPPER, .label = Word::LIMIT, .getText = &DescribeLimit, .set = &StepLimit},
    {.kind = RowKind::STEPPER,
     .label = Word::REPEAT_UP_TO,
     .getText = &DescribeBand,
     .set = &StepBand},
    {.kind = RowKind::GAP},
};

}  // namespace

Rows MakeLimitRows(const Session&) {
  constexpr Word NAMES[] = {Word::LIMIT_1, Word::LIMIT_2, Word::LIMIT_3};
  Rows rows;
  int limit = 0;
  for (const Word name : NAMES) {
    for (const Row& row : LIMIT_ROWS) {
      rows.push_back(WithArgument(row, limit));
      if (row.kind == RowKind::SWITCH) {
        rows.back().label = name;
      }
    }
    ++limit;
  }
  rows.pop_back();
  return rows;
}

}  // namespace app
