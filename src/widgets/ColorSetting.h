#pragma once

#include <windows.h>

#include <cstddef>

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
    COLORREF& color = owner.*setting.color;
    color = static_cast<COLORREF>(store.GetNumber(setting.key, section, static_cast<int>(color)));
  }
}

template <class Owner, std::size_t N>
void SaveColors(const ColorSetting<Owner> (&settings)[N], const char* section, IniStore& store,
                const Owner& owner) {
  for (const ColorSetting<Owner>& setting : settings) {
    store.SetNumber(setting.key, static_cast<int>(owner.*setting.color), section);
  }
}

}  // namespace ferolin
