// The pages that are open, one over the other.
#pragma once

#include <memory>
#include <vector>

#include "pages/Screen.h"

namespace app {

class Session;

class PageStack {
 public:
  /// The session outlives the pages.
  explicit PageStack(Session& session) : session(session) {}

  /// Opens the page over all others.
  void Open(PageId page);
  /// Opens the page under all others: it shows when they are closed.
  void OpenBelow(PageId page);
  /// Closes the uppermost page.
  void CloseTop();
  /// Closes the page wherever it lies.
  void Close(PageId page);
  void CloseAll() { pages.clear(); }

  bool IsOpen(PageId page) const;
  bool IsTop(PageId page) const { return !pages.empty() && pages.back().id == page; }
  /// The page to be seen; null when none is open.
  Screen* GetTop() const { return pages.empty() ? nullptr : pages.back().screen.get(); }

 private:
  struct OpenPage {
    PageId id;
    std::unique_ptr<Screen> screen;
  };
  OpenPage Make(PageId page) const;

  Session& session;
  std::vector<OpenPage> pages;
};

}  // namespace app
