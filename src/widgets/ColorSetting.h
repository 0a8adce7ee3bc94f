#pragma once

#include <windows.h>

#include <cstddef>

#include "base/Format.h"
#include "base/Number.h"
#include "settings/IniStore.h"

namespace ferolin {

/// A colour of a view that the settings can change.
template <class Owner>
struct ColorSetting {
  const char* key;  ///< in the view's section; the value is the COLORREF as a decimal number
  COLORREF Owner::*color;
  COLORREF initial;
};

template <class Owner, std::size_t N>
void InitColors(const ColorSetting<Owner> (&settings)[N], Owner& owner) {
  for (const ColorSetting<Owner>& setting : settings) {
    owner.*setting.color = setting.initial;
  }
}

/// A missing or empty key leaves its colour alone.
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
