// An engine with its pictures and font, and a window that its views are drawn into.
#pragma once

#include <ferolin.h>
#include <gtest/gtest.h>
#include <handheld.h>
#include <windows.h>

#include <memory>
#include <string>

#include "engine/Engine.h"
#include "handheld.h"
#include "support/TempFolder.h"
#include "widgets/Widget.h"

namespace ferolin {

/// The colour read back from a frame, which keeps 32 steps of each channel.
COLORREF Seen(COLORREF color);

class ViewTest : public testing::Test {
 protected:
  /// Sets the battery to 65 %, not charging.
  explicit ViewTest(const char* language = "ENU");
  ~ViewTest() override;

  /// Opens a window that fills a screen of that size. It becomes the engine's render window and
  /// host window.
  void Open(int width, int height, int dpi = 96);

  /// Starts the engine in its folder. Remove pictures that shall be missing before.
  void Load();
  /// Ends the engine as detaching the library does.
  void Unload();
  void RemovePicture(const std::string& name) const;

  /// An accepted position: local time "hhmmss", speed in km/h, course in degrees.
  void Drive(const std::string& time, double kmh, double course = 0);
  /// Gives the engine a position of the GPS API. Only its valid fields count.
  void Receive(GPS_POSITION position);
  using Satellites = std::array<SatelliteInfo, FixRecord::SATELLITE_COUNT>;
  /// Gives the engine the satellites in view, slot by slot.
  void Receive(const Satellites& satellites);
  /// Sets the number of satellites that the position was computed from.
  void SetSatellites(int count);

  Widget& View(int index) const { return *engine->GetWidgets().Get(index); }
  /// Draws a frame on this thread.
  void Draw(int index);
  /// Shows the bars or hides them.
  void ShowBars(int index, bool show);
  handheld::Pixels Shown() const { return handheld::WindowPixels(window); }
  COLORREF ShownAt(int x, int y) const;

  /// Colour of a pixel of the frame as the view has painted it.
  static COLORREF FrameAt(int x, int y);
  /// The smallest rectangle around all pixels of that colour; left >= right when there is none.
  static RECT Bounds(COLORREF color);

  /// lParams of the messages posted since the last call, in order.
  std::vector<LPARAM> TakePosted() const;

  testing_support::TempFolder folder;
  std::unique_ptr<Engine> engine;
  HWND window = nullptr;
};

}  // namespace ferolin
