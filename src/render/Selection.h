#pragma once

#include <windows.h>

namespace ferolin {

/// Keeps an object selected into a context for a scope and puts back what was there before. Deletes
/// nothing.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) : dc(dc), previous(SelectObject(dc, object)) {}
  ~Selection() { SelectObject(dc, previous); }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC dc;
  HGDIOBJ previous;
};

}  // namespace ferolin
