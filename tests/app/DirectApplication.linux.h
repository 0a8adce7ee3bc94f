// The application as a part of the test itself.
#pragma once

#include "RunningApplication.h"
#include "window/Application.h"

namespace app {

class DirectApplication : public RunningApplication {
 public:
  explicit DirectApplication(const LoadedEngine& engine) : application(engine) {}

  /// False when it ends at once.
  bool Start() { return application.Start(nullptr); }

  HWND GetWindow() const override { return application.GetWindow(); }
  void Pump() override;

  /// Texts of the last page drawn that did not fit into their places.
  int CountClippedTexts() const { return application.CountClippedTexts(); }

 private:
  Application application;
};

}  // namespace app
