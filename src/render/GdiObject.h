#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace ferolin {

template <class Handle>
struct GdiDeleter {
  using pointer = Handle;
  void operator()(Handle handle) const { DeleteObject(handle); }
};

/// A GDI object with one owner, deleted at its end. It must not be selected into a context then.
template <class Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter<Handle>>;

using Pen = GdiObject<HPEN>;
using Brush = GdiObject<HBRUSH>;
using Font = GdiObject<HFONT>;
using Region = GdiObject<HRGN>;
using Bitmap = GdiObject<HBITMAP>;

}  // namespace ferolin
