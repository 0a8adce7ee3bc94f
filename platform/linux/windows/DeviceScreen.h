// The screen of the device.
#pragma once

namespace handheld {

/// Size in pixels, resolution in dots per inch.
struct Screen {
  int width;
  int height;
  int dpi;
};

Screen CurrentScreen();

}  // namespace handheld
