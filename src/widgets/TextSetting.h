#pragma once

#include <algorithm>
#include <cstddef>

#include "render/TextStyle.h"
#include "settings/IniStore.h"

namespace ferolin {

/// A kind of text of a view. The settings can change its face and its size.
template <class Owner>
struct TextSetting {
  const char* faceKey;  ///< in the view's section
  const char* sizeKey;
  TextStyle Owner::*style;
  const char* initialFace;
  int initialSize;
};

/// No screen is that high, and views may add sizes up.
constexpr int MAX_TEXT_SIZE = 32767;

template <class Owner, std::size_t N>
void InitTexts(const TextSetting<Owner> (&settings)[N], Owner& owner) {
  for (const TextSetting<Owner>& setting : settings) {
    (owner.*setting.style).face = setting.initialFace;
    (owner.*setting.style).size = setting.initialSize;
  }
}

/// A missing or empty key leaves its face or size alone. Sizes are cut at MAX_TEXT_SIZE.
template <class Owner, std::size_t N>
void LoadTexts(const TextSetting<Owner> (&settings)[N], const char* section, const IniStore& store,
               Owner& owner) {
  for (const TextSetting<Owner>& setting : settings) {
    TextStyle& style = owner.*setting.style;
    if (std::string face = store.GetValue(setting.faceKey, section); !face.empty()) {
      style.face = std::move(face);
    }
    style.size = std::clamp(store.GetNumber(setting.sizeKey, section, style.size), -MAX_TEXT_SIZE,
                            MAX_TEXT_SIZE);
  }
}

/// Saved apart from the sizes: views differ in which come first.
template <class Owner, std::size_t N>
void SaveFaces(const TextSetting<Owner> (&settings)[N], const char* section, IniStore& store,
               const Owner& owner) {
  for (const TextSetting<Owner>& setting : settings) {
    store.SetValue(setting.faceKey, (owner.*setting.style).face, section);
  }
}

template <class Owner, std::size_t N>
void SaveSizes(const TextSetting<Owner> (&settings)[N], const char* section, IniStore& store,
               const Owner& owner) {
  for (const TextSetting<Owner>& setting : settings) {
    store.SetNumber(setting.sizeKey, (owner.*setting.style).size, section);
  }
}

}  // namespace ferolin
