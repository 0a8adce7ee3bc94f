#pragma once

#include <windows.h>

#include <string>

#include "widgets/ButtonBar.h"

namespace ferolin {

class Canvas;
class WidgetOwner;
class IniStore;

/// A full-screen view that is drawn into the host's render window, with two bars of buttons over
/// it: the common ones and its own. Touches come from the host; taps on buttons and long horizontal
/// swipes are answered by posting a code to it.
///
/// Threads: attached on the reader's, drawn on the redraw thread, touched on the host's. Drawing,
/// attaching and the bars are guarded by the engine's data lock; mouse handlers take it themselves,
/// because releasing a button asks for a redraw, which waits for a thread. Settings are loaded and
/// saved while no other thread runs.
class Widget {
 public:
  /// `widgetName` is 8-bit text in the ANSI code page. The engine owns the widget.
  Widget(std::string widgetName, WidgetOwner& owner);
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  /// Both fill an empty bar and leave one alone that has buttons.
  virtual void CreateCommonButtons();
  virtual void CreateOwnButtons() {}
  virtual ~Widget() = default;
  /// Draws one whole frame into the window: the background, what the view paints, the bars.
  void Draw(HWND window);
  /// Makes what is missing and lays the bars out for the shape of the render window. Called with
  /// every update.
  virtual void Attach();
  virtual const char* GetName() const { return name.c_str(); }
  virtual void SaveSettings(IniStore&) const {}
  virtual void LoadSettings(const IniStore&) {}
  virtual void OnMouseUp(HWND window, POINT point);
  virtual void OnMouseDown(HWND window, POINT point);
  virtual void OnMouseMove(HWND, POINT) {}
  virtual void ToggleBars();
  virtual void ShowBars();

 protected:
  /// False while the view has nothing to show. The window then keeps the frame presented last,
  /// with the bars drawn over it again.
  virtual bool CanPaint() const { return true; }
  /// Paints the view onto its background.
  virtual void Paint(Canvas&) {}

  /// Pixel of the frame that is shown at that pixel of the window.
  static POINT ToFrame(POINT windowPoint);

  /// The arrows, flipping and turning.
  void CreateNavigationButtons();
  /// A button of the bar with a code for the host; `file` is a path below the library's folder.
  void AddButton(ButtonBar& bar, const WCHAR* file, LPARAM code);

  /// The button of either bar at that point of the window, null when there is none. Counts as a
  /// touch: it keeps visible bars up.
  const Button* GetButtonAt(HWND window, POINT point);

  /// Value of the sensor at that index, and the number at its start (0 when there is none).
  const char* GetSensorText(int index) const;
  double GetSensorNumber(int index) const;

  WidgetOwner& owner;
  COLORREF backgroundColor = 0;
  ButtonBar commonBar{BarSide::TOP};
  ButtonBar ownBar{BarSide::BOTTOM};
  bool isMouseDown = false;
  /// Where the finger went down, or where a view that follows it has seen it last: a swipe begins
  /// there.
  POINT lastPoint = {};

 private:
  void FinishFrame(Canvas& canvas);
  void PresentAgain();
  void DrawOverlay(Canvas& canvas);
  bool PostButtonAt(HWND window, POINT point);
  void PostSwipe(HWND window, POINT point);

  std::string name;
};

}  // namespace ferolin
