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

/// A colour as it reads from a frame, which knows 32 steps of each channel.
COLORREF Seen(COLORREF color);

class ViewTest : public testing::Test {
 protected:
  /// A battery at 65 %, not charging; English unless the test's program says otherwise.
  explicit ViewTest(const char* language = "ENU");
  ~ViewTest() override;

  /// Opens a window that fills a screen of that size; it becomes the engine's render and host
  /// window.
  void Open(int width, int height, int dpi = 96);

  /// Starts the engine in its folder. Pictures that a test wants to be missing are removed before.
  void Load();
  /// Ends the engine as detaching does.
  void Unload();
  void RemovePicture(const std::string& name) const;

  /// An accepted position: local time "hhmmss", speed in km/h, course in degrees.
  void Drive(const std::string& time, double kmh, double course = 0);
  /// What the GPS API says beside the position; the valid fields of `position` are taken.
  void Receive(GPS_POSITION position);
  using Satellites = std::array<SatelliteInfo, FixRecord::SATELLITE_COUNT>;
  /// The satellites in view, slot by slot.
  void Receive(const Satellites& satellites);
  /// How many satellites the position was computed from.
  void SetSatellites(int count);

  Widget& View(int index) const { return *engine->GetWidgets().Get(index); }
  /// Draws a frame on this thread, at once.
  void Draw(int index);
  /// Shows the bars or hides them.
  void ShowBars(int index, bool show);
  handheld::Pixels Shown() const { return handheld::WindowPixels(window); }
  COLORREF ShownAt(int x, int y) const;

  /// The frame as the view has drawn it.
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
