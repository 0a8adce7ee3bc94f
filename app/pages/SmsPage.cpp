#include <algorithm>

#include "pages/PageRows.h"
#include "pages/RowTools.h"
#include "pages/Session.h"

namespace app {

namespace {

/// One number fits into a row, several do not.
WideString DescribeRecipients(const Session& session, int) {
  const WideString recipients = session.engine.GetSmsRecipients();
  const int commas = static_cast<int>(std::ranges::count(recipients, WCHAR{','}));
  if (recipients.empty()) {
    return GetWord(Word::NO_RECIPIENTS);
  }
  return commas == 0 ? recipients : GetWord(Word::NUMBERS) + TEXT(" ") + Number(commas + 1);
}
int IsSmsAutomatic(const Session& session, int) {
  return session.engine.IsSMSEnabled();
}
void SetSmsAutomatic(Session& session, int, int value) {
  Session::SmsChoices choices = session.GetSmsChoices();
  choices.isAutomatic = value != 0;
  session.SetSmsChoices(choices);
}
WideString DescribeInterval(const Session& session, int) {
  return WithUnit(session.engine.GetSMSInterval(), Word::MINUTES);
}
/// Minute by minute up to ten, then by fives.
void StepInterval(Session& session, int, int direction) {
  constexpr int LAST_SINGLE = 10;
  constexpr int LARGE_STEP = 5;
  constexpr int LONGEST = 120;
  Session::SmsChoices choices = session.GetSmsChoices();
  const int minutes = choices.intervalMinutes;
  const bool isSingle = direction > 0 ? minutes < LAST_SINGLE : minutes <= LAST_SINGLE;
  choices.intervalMinutes = Step(minutes, direction, isSingle ? 1 : LARGE_STEP, 1, LONGEST);
  session.SetSmsChoices(choices);
}
int IsSmsAfterMoving(const Session& session, int) {
  return session.engine.IsSMSSendIfChanged();
}
void SetSmsAfterMoving(Session& session, int, int value) {
  Session::SmsChoices choices = session.GetSmsChoices();
  choices.onlyAfterMoving = value != 0;
  session.SetSmsChoices(choices);
}
int CanSendSms(const Session& session, int) {
  return session.engine.IsSMSExist() != 0 && !session.engine.GetSmsRecipients().empty() ? 1 : 0;
}
WideString DescribeSending(const Session& session, int) {
  return session.isReportSent ? GetWord(Word::SENT) : WideString();
}
void SendSms(Session& session, int, int) {
  session.engine.SendSMS();
  session.isReportSent = true;
}
WideString DescribeMessage(const Session& session, int) {
  return session.engine.GetSmsText();
}

constexpr Row SMS_ROWS[] = {
    {.kind = RowKind::LINK,
     .label = Word::RECIPIENTS,
     .getText = &DescribeRecipients,
     .page = PageId::RECIPIENTS},
    {.kind = RowKind::SWITCH,
     .label = Word::SEND_AUTOMATICALLY,
     .get = &IsSmsAutomatic,
     .set = &SetSmsAutomatic},
    {.kind = RowKind::STEPPER,
     .label = Word::INTERVAL,
     .getText = &DescribeInterval,
     .set = &StepInterval},
    {.kind = RowKind::SWITCH,
     .label = Word::ONLY_AFTER_MOVING,
     .get = &IsSmsAfterMoving,
     .set = &SetSmsAfterMoving},
    {.kind = RowKind::ACTION,
     .label = Word::SEND_NOW,
     .getText = &DescribeSending,
     .set = &SendSms,
     .isEnabled = &CanSendSms},
    {.kind = RowKind::READOUT, .label = Word::MESSAGE_TEXT, .getText = &DescribeMessage},
};

}  // namespace

Rows MakeSmsRows(const Session&) {
  return RowsOf(SMS_ROWS);
}

}  // namespace app
