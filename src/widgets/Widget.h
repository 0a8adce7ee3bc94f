#pragma once

#include <windows.h>

#include <string>

#include "widgets/ButtonBar.h"

namespace ferolin {

class Canvas;
class WidgetOwner;
class IniStore;

/// A full-screen view in the host's render window, with two bars of buttons over it: the common
/// ones and its own. Touches come from the host. A tap on a button and a long horizontal swipe post
/// a code to the host.
///
/// Threads: attached on the reader's, drawn on the redraw thread, touched on the host's. The
/// engine's data lock guards drawing, attaching and the bars. Mouse handlers take the lock
/// themselves: releasing a button asks for a redraw, which waits for a thread. Settings are loaded
/// and saved while no other thread runs.
class Widget {
 public:
  /// `name` is 8-bit text in the ANSI code page. The owner outlives the widget.
  Widget(std::string name, WidgetOwner& owner);
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  /// Both fill a bar that is still empty.
  virtual void CreateCommonButtons();
  virtual void CreateOwnButtons() {}
  virtual ~Widget() = default;
  /// Draws one whole frame into the window: the background, what the view paints, the bars.
  void Draw(HWND window);
  /// Finds sensors and loads pictures and buttons that are still missing, and chooses the bars'
  /// sides by the shape of the render window. Called with every update.
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
  virtual void Paint(Canvas& canvas) = 0;

  /// Pixel of the frame that is shown at that pixel of the window.
  static POINT ToFrame(POINT windowPoint);

  /// Fills an empty own bar with the arrows, flipping and turning.
  void CreateNavigationButtons();
  /// Appends a button that posts `code`. `file` is a path below the library's folder.
  void AddButton(ButtonBar& bar, const WCHAR* file, LPARAM code);

  /// The button of either bar at that point of the window; null when there is none. Counts as a
  /// touch: it keeps visible bars up.
  const Button* GetButtonAt(HWND window, POINT point);

  /// Value text of the sensor at that index, and the number at the text's start. "" and 0 for an
  /// index out of range.
  const char* GetSensorText(int index) const;
  double GetSensorNumber(int index) const;

  WidgetOwner& owner;
  COLORREF backgroundColor = 0;
  ButtonBar commonBar;
  ButtonBar ownBar;
  bool isMouseDown = false;
  /// Start of a swipe: the point where the finger went down, or where a view that follows the
  /// finger saw it last.
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
