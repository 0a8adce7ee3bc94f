// Lets the host see what is read from serial ports.
#pragma once

#include <functional>
#include <mutex>
#include <string_view>

namespace handheld {

/// All methods may be called from any thread.
class ReadObserver {
 public:
  static ReadObserver& Instance();

  /// An empty function ends the observation. Returns when no call of the function before is under
  /// way.
  void Set(std::function<void(std::string_view)> function);

  void OnRead(std::string_view bytes);

 private:
  std::mutex mutex;
  std::function<void(std::string_view)> observe;
};

}  // namespace handheld
