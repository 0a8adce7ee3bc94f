#pragma once

#include <windows.h>

#include <cstddef>

#include "base/Format.h"
#include "base/Number.h"
#include "settings/IniStore.h"

namespace ferolin {

/// A colour of a view: its key in the view's section of the settings (the COLORREF as a decimal
/// number), where it is kept, and what it is when the settings do not tell.
template <class Owner>
struct ColorSetting {
  const char* key;
  COLORREF Owner::*color;
  COLORREF initial;
};

template <class Owner, std::size_t N>
void InitColors(const ColorSetting<Owner> (&settings)[N], Owner& owner) {
  for (const ColorSetting<Owner>& setting : settings) {
    owner.*setting.color = setting.initial;
  }
}

/// A colour whose key is missing stays as it is.
template <class Owner, std::size_t N>
void LoadColors(const ColorSetting<Owner> (&settings)[N], const char* section,
                const IniStore& store, Owner& owner) {
  for (const ColorSetting<Owner>& setting : settings) {
    const std::string value = store.GetValue(setting.key, section);
    if (!value.empty()) {
      owner.*setting.color = static_cast<COLORREF>(ParseInt(value.c_str()));
    }
  }
}

template <class Owner, std::size_t N>
void SaveColors(const ColorSetting<Owner> (&settings)[N], const char* section, IniStore& store,
                const Owner& owner) {
  for (const ColorSetting<Owner>& setting : settings) {
    store.SetValue(setting.key, Format("%i", owner.*setting.color), section);
  }
}

}  // namespace ferolin
