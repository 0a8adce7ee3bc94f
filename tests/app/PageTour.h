// The way through all pages, the same in all homes.
#pragma once

#include "ApplicationTest.h"

namespace app {

/// Pages with values to be seen: three limits, two recipients, a message, a position.
class PageTour : public ApplicationTest {
 protected:
  PageTour();

  /// Starts with the port COM1 chosen.
  void StartWithPort(int width, int height);
  void SendFirstPosition();
  /// After StartWithPort. From the waiting page to the last one in the light theme.
  void GoThroughPages();
  /// Called with each page open. Names differ.
  virtual void Take(const char* page) = 0;

 private:
  void SetValues();
  void ForgetFocus() { Tap(pageWidth - 1, 1); }
  /// Opens the row that the focus reaches with so many steps down, and forgets the focus.
  void OpenRow(int steps);
  void TakePage(const char* page, int steps);

  int pageWidth = 0;
};

}  // namespace app
