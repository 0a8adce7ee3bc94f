#pragma once

#include <ferolin.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "Device.h"
#include "EngineLibrary.h"
#include "HostWindow.h"

namespace e2e {

/// "$body*hh\r\n" with its checksum.
std::string Sentence(std::string_view body);

/// An RMC sentence at 48 degrees 07.038 N, 11 degrees 31 E on 2024-03-23: time "hhmmss", status "A"
/// or "V", speed in knots as text.
std::string Rmc(std::string_view time, std::string_view status, std::string_view knots);

/// A test with a device and a host window; the engine is loaded by Load.
class EngineTest : public testing::Test {
 protected:
  EngineTest() : device(Device::Make()), host(std::make_unique<HostWindow>()) {}

  void Load() { engine = std::make_unique<EngineLibrary>(); }
  void Unload() { engine.reset(); }

  /// Loads the engine, connects a receiver to COM1 and starts reading it.
  void Start();

  /// Sends bytes and waits for so many updates. Returns how many came.
  std::size_t Send(std::string_view bytes, std::size_t updates = 1);

  /// Updates that came although nobody waited for them. Whatever was sent before has been dealt
  /// with when it returns: it sends one more accepted sentence behind it and waits for that.
  std::size_t CountUpdatesUntilMarker();

  std::unique_ptr<Device> device;
  std::unique_ptr<HostWindow> host;
  std::unique_ptr<Receiver> receiver;
  std::unique_ptr<EngineLibrary> engine;
};

}  // namespace e2e
