// A receiver that is looked for.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "common/GpsdConnection.h"
#include "common/WakeEvent.h"
#include "sources/NmeaSource.h"
#include "sources/SerialPort.h"

namespace host {

/// Asks gpsd first, if one runs and knows a receiver. Otherwise listens at each serial port where a
/// receiver may be, at the usual rates, until a sentence with a right checksum comes. Looks again
/// when the receiver is unplugged, and waits for one that is not there yet.
class SearchSource : public NmeaSource {
 public:
  struct Receiver {
    /// Path of the serial device, by its stable name where it has one.
    std::string device;
    int baudRate = 0;

    bool operator==(const Receiver&) const = default;
  };

  struct Wishes {
    /// Tried first; no device: none was found before.
    Receiver last;
    /// The only rate to listen at; 0: all usual ones.
    int baudRate = 0;
    /// Address of gpsd, as text for siblings::GpsdAddress::FromText.
    std::string gpsd;
    /// Folder of the devices.
    std::string devices = "/dev";
  };

  explicit SearchSource(Wishes wishes) : wishes(std::move(wishes)) {}

  std::optional<std::string> Read() override;
  void Stop() override { stop.Raise(); }
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  /// "looking for a receiver: ttyUSB0 at 9600"; empty while one is read.
  std::string GetTrouble() const override;
  bool IsLive() const override { return true; }
  bool Searches() const override { return true; }
  /// "ttyUSB0 at 9600" or "gpsd".
  std::string GetName() const override;

  /// The receiver found last at a serial port; nothing when there was none. For any thread.
  std::optional<Receiver> GetFound() const;

 private:
  /// Reads from what was found. Nothing when it is gone.
  std::optional<std::string> ReadFound();
  void Search();
  bool FindGpsd();
  bool FindPort(const std::string& device);
  /// Bytes with a sentence in them; nothing when none comes.
  std::optional<std::string> Listen(const SerialPort& at) const;
  std::vector<int> ChooseRates(const std::string& device) const;
  std::vector<std::string> ChoosePorts() const;
  void Report(const std::string& what);
  void Found(const std::string& itsName, const std::optional<Receiver>& receiver);

  const Wishes wishes;
  siblings::WakeEvent stop;
  // At most one of them is there.
  std::unique_ptr<siblings::GpsdConnection> gpsd;
  std::unique_ptr<SerialPort> port;
  /// Bytes that were read while listening.
  std::string pending;

  mutable std::mutex mutex;
  std::string trouble;
  std::string name;
  std::optional<Receiver> found;
};

/// Whether the bytes hold a whole sentence with a right checksum.
bool HasSentence(std::string_view bytes);

}  // namespace host
