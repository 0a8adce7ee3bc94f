#include "receiver/Receiver.h"

#include "base/CodePage.h"
#include "base/Format.h"
#include "receiver/SerialPorts.h"

namespace app {

namespace {

constexpr DWORD SILENCE_MS = 5'000;
constexpr DWORD REOPEN_INTERVAL_MS = 10'000;

}  // namespace

void Receiver::Start(HWND hostWindow) {
  if (CanBeChosen()) {
    window = hostWindow;
    StartAfresh();
  }
}

void Receiver::UseService(bool isService) {
  engine.SetUseGPSAPI(isService ? 1 : 0);
  StartAfresh();
}

void Receiver::SetPort(const WideString& name) {
  engine.SetComPortName(name.c_str());
  StartAfresh();
}

/// The engine takes a new rate when it opens the port.
void Receiver::SetBaudRate(int baudRate) {
  engine.SetComPortSpeed(baudRate);
  Reopen();
}

/// Choosing the source again opens it anew, unless the engine has given it up: then a start does.
void Receiver::Reopen() {
  if (!CanBeChosen()) {
    return;
  }
  engine.SetUseGPSAPI(UsesService() ? 1 : 0);
  if (window != nullptr) {
    engine.StartCallBack(window);
  }
  lastOpeningMs = GetTickCount();
}

/// Updates that still wait come from the receiver before.
void Receiver::StartAfresh() {
  if (window != nullptr) {
    const UINT update = engine.GetWndMessageID();
    MSG dropped;
    while (PeekMessageW(&dropped, window, update, update, PM_REMOVE)) {
    }
    engine.StartCallBack(window);
  }
  hasData = false;
  lastUpdateMs = GetTickCount();
  lastOpeningMs = lastUpdateMs;
  trouble = Diagnose();
}

bool Receiver::OnUpdate() {
  lastUpdateMs = GetTickCount();
  hasUpdates = true;
  const bool isFirst = !hasData && TellsSomething();
  hasData = hasData || isFirst;
  return isFirst;
}

bool Receiver::TellsSomething() const {
  if (surroundings != nullptr) {
    return surroundings->DescribeTrouble().empty();
  }
  return !UsesService() || engine.GetValueOfSensor(FEROLIN_SENSOR_GPS_STATUS) == TEXT("OK");
}

bool Receiver::IsSilent() const {
  const bool isTold = surroundings == nullptr || !surroundings->DescribeTrouble().empty();
  return isTold && GetTickCount() - lastUpdateMs >= SILENCE_MS;
}

void Receiver::OnSecond() {
  if (!IsSilent()) {
    return;
  }
  trouble = Diagnose();
  if (GetTickCount() - lastOpeningMs >= REOPEN_INTERVAL_MS) {
    Reopen();
  }
}

WideString Receiver::Describe() const {
  if (surroundings != nullptr) {
    return surroundings->DescribeSource();
  }
  if (UsesService()) {
    return GetWord(Word::GPS_SERVICE);
  }
  const WideString port = engine.GetPortName();
  if (port.empty()) {
    return GetWord(Word::NO_PORT_CHOSEN);
  }
  const int baudRate = GetBaudRate();
  return baudRate > 0 ? port + ferolin::Widen(ferolin::Format(", %i", baudRate)) : port;
}

WideString Receiver::DescribeTrouble() const {
  const WideString told = surroundings != nullptr ? surroundings->DescribeTrouble() : WideString();
  return told.empty() ? GetWord(trouble) : told;
}

Word Receiver::Diagnose() const {
  if (UsesService()) {
    return hasData ? Word::POSITION_LOST : Word::NO_POSITION;
  }
  const WideString port = engine.GetPortName();
  if (port.empty()) {
    return Word::NO_PORT_CHOSEN;
  }
  if (!IsSerialPort(port)) {
    return Word::PORT_IS_MISSING;
  }
  return hasData ? Word::DATA_ENDED : Word::NO_DATA;
}

}  // namespace app
