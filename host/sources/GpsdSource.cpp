#include "sources/GpsdSource.h"

namespace host {

namespace {

constexpr int RECONNECT_PAUSE_MS = 1000;

}  // namespace

GpsdSource::GpsdSource(const std::string& address)
    : address(siblings::GpsdAddress::FromText(address)) {}

std::optional<std::string> GpsdSource::Read() {
  while (!stop.IsRaised()) {
    if (connection == nullptr && !Connect()) {
      stop.WaitFor(RECONNECT_PAUSE_MS);
      continue;
    }
    std::string line;
    if (!connection->ReadLine(line)) {
      connection.reset();
    } else if (!line.starts_with('{')) {
      return line;
    }
  }
  return std::nullopt;
}

bool GpsdSource::Connect() {
  auto opening = std::make_unique<siblings::GpsdConnection>(stop);
  if (!opening->Open(address, REQUEST)) {
    SetTrouble("cannot reach gpsd at " + address.host + ":" + address.port + ": " +
               opening->GetError());
    return false;
  }
  SetTrouble({});
  connection = std::move(opening);
  return true;
}

std::string GpsdSource::GetTrouble() const {
  const std::lock_guard lock(mutex);
  return trouble;
}

void GpsdSource::SetTrouble(const std::string& text) {
  const std::lock_guard lock(mutex);
  trouble = text;
}

}  // namespace host
