// A page of rows.
#pragma once

#include <optional>

#include "pages/RowLayout.h"
#include "pages/RowPainter.h"
#include "pages/Screen.h"
#include "pages/Scroll.h"

namespace app {

class ListPage : public Screen {
 public:
  /// The session outlives the page.
  ListPage(PageId page, Session& session);

  void Draw(Painter& painter) override;
  void OnPress(POINT point) override;
  void OnDrag(POINT point) override;
  Outcome OnRelease(POINT point) override;
  Outcome OnKey(WPARAM key) override;
  void OnStep() override;
  bool IsMoving() const override;
  bool IsLive() const override;

 private:
  static constexpr int BACK = -1;
  static constexpr int NOWHERE = -2;

  /// What lies under the finger or has the focus: a row, the button back, or nothing.
  struct Target {
    int row = NOWHERE;
    RowPart part = RowPart::WHOLE;
    bool operator==(const Target&) const = default;
  };

  bool HasBack() const { return page != PageId::WAITING; }
  const Row& GetRow(int row) const { return rows[static_cast<std::size_t>(row)]; }
  bool CanPress(const Target& target) const;
  RECT GetPlace(int row) const;
  Target FindTarget(POINT point) const;
  void DrawRows(Painter& target);
  void DrawScrollBar(Painter& target);
  Outcome Activate(const Target& target);
  Outcome ActivateRow(const Row& row, int index, RowPart part);
  void MoveFocus(int direction);
  void ShowFocus();

  const PageId page;
  Session& session;
  Rows rows;
  RowLayout layout;
  Scroll scroll;
  Painter* painter = nullptr;  ///< that of the last drawing
  Target pressed;
  Target focused;
  int armedRow = NOWHERE;
  /// Time at which a button that is held down is repeated next.
  std::optional<DWORD> repeatMs;
};

}  // namespace app
