// What the host's thread tells the server.
#pragma once

#include <windows.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/Figures.h"
#include "engine/Readout.h"

namespace host {

using WebTime = std::chrono::steady_clock::time_point;

/// An update and when its parts were new.
struct Snapshot {
  Update update;
  Figures figures;
  /// Of the last update with a fix; nothing before the first one.
  std::optional<WebTime> lastFix;
  /// Of the last update that came from a receiver; at first the start of the server.
  WebTime lastHeard;
};

/// What changes seldom.
struct WebFacts {
  struct Limit {
    int kmh = 0;
    bool isOn = false;

    bool operator==(const Limit&) const = default;
  };

  bool isRussian = false;
  std::vector<Limit> limits;
  /// Window whose picture browsers see; null: none.
  HWND window = nullptr;
  /// Name of the view in the user's language.
  std::string viewName;
  int dpi = 0;
  /// Whether a browser may choose the size of the picture.
  bool mayFit = false;

  bool operator==(const WebFacts&) const = default;
};

}  // namespace host
