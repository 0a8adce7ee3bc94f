#include "pages/PageRows.h"
#include "pages/RowTools.h"
#include "pages/Session.h"
#include "receiver/SerialPorts.h"

namespace app {

namespace {

/// Those of receivers first, then the slow ones that few use.
constexpr int BAUD_RATES[] = {
    4800, 9600, 19200, 38400, 57600, 115200, 2400, 300, Receiver::KEEP_PORT_SPEED};

WideString DescribeChoice(const Session&, int) {
  return GetWord(Word::CHOSEN_AT_START);
}
int IsService(const Session& session, int) {
  return session.receiver.UsesService() ? 1 : 0;
}
int IsPortUsed(const Session& session, int) {
  return session.receiver.UsesService() ? 0 : 1;
}
void UseService(Session& session, int, int) {
  session.receiver.UseService(true);
}
void UsePort(Session& session, int, int) {
  session.receiver.UseService(false);
}
WideString DescribePort(const Session& session, int) {
  const WideString name = session.engine.GetPortName();
  return name.empty() ? GetWord(Word::NO_PORT_CHOSEN) : name;
}
WideString DescribeBaudRate(int baudRate) {
  return baudRate > 0 ? Number(baudRate) : GetWord(Word::AS_SET);
}
WideString DescribeCurrentBaudRate(const Session& session, int) {
  return DescribeBaudRate(session.receiver.GetBaudRate());
}
WideString NamePort(const Session&, int number) {
  return TEXT("COM") + Number(number);
}
int IsPortChosen(const Session& session, int number) {
  return session.engine.GetPortName() == NamePort(session, number) ? 1 : 0;
}
void ChoosePort(Session& session, int number, int) {
  session.receiver.SetPort(NamePort(session, number));
}
WideString NameBaudRate(const Session&, int baudRate) {
  return DescribeBaudRate(baudRate);
}
int IsBaudRateChosen(const Session& session, int baudRate) {
  return session.receiver.GetBaudRate() == baudRate ? 1 : 0;
}
void ChooseBaudRate(Session& session, int baudRate, int) {
  session.receiver.SetBaudRate(baudRate);
}

constexpr Row RECEIVER_ROWS[] = {
    {.kind = RowKind::CHOICE, .label = Word::GPS_SERVICE, .get = &IsService, .set = &UseService},
    {.kind = RowKind::CHOICE, .label = Word::SERIAL_PORT, .get = &IsPortUsed, .set = &UsePort},
    {.kind = RowKind::GAP},
    {.kind = RowKind::LINK,
     .label = Word::PORT,
     .getText = &DescribePort,
     .isEnabled = &IsPortUsed,
     .page = PageId::PORT},
    {.kind = RowKind::LINK,
     .label = Word::BAUD_RATE,
     .getText = &DescribeCurrentBaudRate,
     .isEnabled = &IsPortUsed,
     .page = PageId::BAUD_RATE},
};

/// Shown where the receiver is the choice of the surroundings.
constexpr Row CHOSEN_ROWS[] = {
    {.kind = RowKind::READOUT, .getLabel = &DescribeReceiver, .getText = &DescribeChoice},
};

constexpr Row PORT_ROW = {
    .kind = RowKind::CHOICE, .getLabel = &NamePort, .get = &IsPortChosen, .set = &ChoosePort};
constexpr Row NO_PORTS_ROW = {.kind = RowKind::HEADING, .label = Word::NO_PORTS};
constexpr Row BAUD_RATE_ROW = {.kind = RowKind::CHOICE,
                               .getLabel = &NameBaudRate,
                               .get = &IsBaudRateChosen,
                               .set = &ChooseBaudRate};

}  // namespace

Rows MakeReceiverRows(const Session& session) {
  return session.receiver.CanBeChosen() ? RowsOf(RECEIVER_ROWS) : RowsOf(CHOSEN_ROWS);
}

Rows MakePortRows(const Session&) {
  Rows rows;
  for (const int number : FindSerialPorts()) {
    rows.push_back(WithArgument(PORT_ROW, number));
  }
  if (rows.empty()) {
    rows.push_back(NO_PORTS_ROW);
  }
  return rows;
}

Rows MakeBaudRateRows(const Session&) {
  Rows rows;
  for (const int baudRate : BAUD_RATES) {
    rows.push_back(WithArgument(BAUD_RATE_ROW, baudRate));
  }
  return rows;
}

}  // namespace app
