#include "sources/SearchSource.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <utility>

#include "sources/GpsdSource.h"
#include "sources/NmeaSentence.h"
#include "sources/PortSource.h"
#include "sources/ReceiverPorts.h"

namespace host {

namespace {

using Clock = std::chrono::steady_clock;

/// The usual rates of receivers, the most frequent first.
constexpr std::array USUAL_RATES = {9600, 4800, 38400, 115200, 460800};

/// Longer than the pause between two sentences of a receiver that sends once a second.
constexpr std::chrono::milliseconds PATIENCE(2200);
constexpr int GPSD_PATIENCE_MS = 2000;
constexpr int LOOK_INTERVAL_MS = 1000;
/// Looks after which ports that gave nothing are tried again.
constexpr int LOOKS_BETWEEN_TRIES = 5;

constexpr std::string_view DEVICE_LIST = R"("class":"DEVICES")";
constexpr std::string_view DEVICE_IN_LIST = R"("path":)";
constexpr int WAIT_FOREVER = -1;
constexpr const char* LOOKING = "looking for a receiver: ";

std::string FileName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string DescribePort(const std::string& device, int baud) {
  return FileName(device) + " at " + std::to_string(baud);
}

bool IsReport(const std::string& line) {
  return line.starts_with('{');
}

}  // namespace

bool HasSentence(std::string_view bytes) {
  while (true) {
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos) {
      return false;
    }
    std::string_view line = bytes.substr(0, end);
    line = line.substr(0, line.find('\r'));
    const std::size_t start = line.rfind('$');
    if (start != std::string_view::npos &&
        NmeaSentence(line.substr(start)).checksum == NmeaSentence::Checksum::RIGHT) {
      return true;
    }
    bytes.remove_prefix(end + 1);
  }
}

std::optional<std::string> SearchSource::Read() {
  while (!stop.IsRaised()) {
    if (gpsd == nullptr && port == nullptr) {
      Search();
    } else if (std::optional<std::string> bytes = ReadFound()) {
      return bytes;
    } else {
      gpsd.reset();
      port.reset();
    }
  }
  return std::nullopt;
}

std::optional<std::string> SearchSource::ReadFound() {
  if (!pending.empty()) {
    return std::exchange(pending, {});
  }
  if (port) {
    return port->Read(WAIT_FOREVER, stop);
  }
  std::string line;
  while (gpsd->ReadLine(line)) {
    if (!IsReport(line)) {
      return line;
    }
  }
  return std::nullopt;
}

/// Returns when something was found or the source was stopped.
void SearchSource::Search() {
  std::vector<std::string> tried;
  int looks = 0;
  while (!stop.IsRaised() && !FindGpsd()) {
    const std::vector<std::string> ports = ChoosePorts();
    if (ports.empty()) {
      Report("none is plugged in");
    }
    if (ports != tried || ++looks == LOOKS_BETWEEN_TRIES) {
      if (std::any_of(ports.begin(), ports.end(),
                      [this](const std::string& each) { return FindPort(each); })) {
        return;
      }
      tried = ports;
      looks = 0;
    }
    stop.WaitFor(LOOK_INTERVAL_MS);
  }
}

/// A gpsd that knows no receiver is left alone. It tells its devices before anything else.
bool SearchSource::FindGpsd() {
  auto opening = std::make_unique<siblings::GpsdConnection>(stop);
  if (!opening->Open(siblings::GpsdAddress::FromText(wishes.gpsd), GpsdSource::REQUEST)) {
    return false;
  }
  std::string line;
  while (opening->ReadLine(line, GPSD_PATIENCE_MS) && IsReport(line)) {
    if (line.find(DEVICE_LIST) == std::string::npos) {
      continue;
    }
    if (line.find(DEVICE_IN_LIST) == std::string::npos) {
      return false;
    }
    gpsd = std::move(opening);
    Found("gpsd", std::nullopt);
    return true;
  }
  return false;
}

bool SearchSource::FindPort(const std::string& device) {
  Report(FileName(device));
  auto opening = std::make_unique<SerialPort>(device);
  if (!opening->IsOpen()) {
    Report(DescribeOpenFailure(device, errno));
    return false;
  }
  for (const int baud : ChooseRates(device)) {
    if (stop.IsRaised()) {
      return false;
    }
    Report(DescribePort(device, baud));
    opening->SetBaudRate(baud);
    if (std::optional<std::string> bytes = Listen(*opening)) {
      pending = *std::move(bytes);
      port = std::move(opening);
      Found(DescribePort(device, baud), Receiver{device, baud});
      return true;
    }
  }
  return false;
}

std::optional<std::string> SearchSource::Listen(const SerialPort& at) const {
  const Clock::time_point end = Clock::now() + PATIENCE;
  std::string heard;
  while (!stop.IsRaised()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    if (left.count() <= 0) {
      break;
    }
    const std::optional<std::string> bytes = at.Read(static_cast<int>(left.count()), stop);
    if (!bytes) {
      break;
    }
    heard += *bytes;
    if (HasSentence(heard)) {
      return heard;
    }
  }
  return std::nullopt;
}

/// The rate that worked before comes first.
std::vector<int> SearchSource::ChooseRates(const std::string& device) const {
  if (wishes.baudRate != 0) {
    return {wishes.baudRate};
  }
  std::vector<int> rates(USUAL_RATES.begin(), USUAL_RATES.end());
  const Receiver last = GetFound().value_or(wishes.last);
  if (device == last.device && last.baudRate != 0) {
    rates.erase(std::remove(rates.begin(), rates.end(), last.baudRate), rates.end());
    rates.insert(rates.begin(), last.baudRate);
  }
  return rates;
}

/// The port that worked before comes first.
std::vector<std::string> SearchSource::ChoosePorts() const {
  std::vector<std::string> ports = FindReceiverPorts(wishes.devices);
  const std::string last = GetFound().value_or(wishes.last).device;
  std::stable_partition(ports.begin(), ports.end(),
                        [&last](const std::string& each) { return each == last; });
  return ports;
}

void SearchSource::Report(const std::string& what) {
  const std::lock_guard lock(mutex);
  trouble = LOOKING + what;
}

void SearchSource::Found(const std::string& itsName, const std::optional<Receiver>& receiver) {
  const std::lock_guard lock(mutex);
  name = itsName;
  if (receiver) {
    found = receiver;
  }
  trouble.clear();
}

std::string SearchSource::GetTrouble() const {
  const std::lock_guard lock(mutex);
  return trouble;
}

std::string SearchSource::GetName() const {
  const std::lock_guard lock(mutex);
  return name;
}

std::optional<SearchSource::Receiver> SearchSource::GetFound() const {
  const std::lock_guard lock(mutex);
  return found;
}

}  // namespace host
