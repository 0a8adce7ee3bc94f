// The program around the application's window, where there is one.
#pragma once

#include "base/WideString.h"

namespace app {

using ferolin::WideString;

/// A program that shows the window, starts the engine, hands it its positions and keeps picture and
/// trip. All calls come on the window's thread.
class Surroundings {
 public:
  Surroundings() = default;
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;
  virtual ~Surroundings() = default;

  /// Where positions come from, such as "/dev/ttyUSB0".
  virtual WideString DescribeSource() const = 0;
  /// What is wrong with the reception; empty when nothing is.
  virtual WideString DescribeTrouble() const = 0;

  /// The engine has taken a position. Application::ShowUpdate is to be called.
  virtual void OnUpdate() = 0;
  /// The user wants to quit. The window stays until the application is destroyed.
  virtual void OnQuit() = 0;
  virtual void ToggleFullScreen() = 0;
};

}  // namespace app
