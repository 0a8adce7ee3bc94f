#include "serial/ReadObserver.h"

#include <utility>

#include "handheld.h"

namespace handheld {

ReadObserver& ReadObserver::Instance() {
  static ReadObserver& observer = *new ReadObserver;
  return observer;
}

void ReadObserver::Set(std::function<void(std::string_view)> function) {
  const std::lock_guard lock(mutex);
  observe = std::move(function);
}

void ReadObserver::OnRead(std::string_view bytes) {
  const std::lock_guard lock(mutex);
  if (observe) {
    observe(bytes);
  }
}

void ObserveSerialReads(std::function<void(std::string_view)> observer) {
  ReadObserver::Instance().Set(std::move(observer));
}

}  // namespace handheld
