#pragma once

#include <cstddef>

#include "base/Format.h"
#include "base/Number.h"
#include "render/TextStyle.h"
#include "settings/IniStore.h"

namespace ferolin {

/// A kind of text of a view: the keys of its face and its size in the view's section of the
/// settings, where it is kept, and what it is when the settings do not tell.
template <class Owner>
struct TextSetting {
  const char* faceKey;
  const char* sizeKey;
  TextStyle Owner::*style;
  const char* initialFace;
  int initialSize;
};

template <class Owner, std::size_t N>
void InitTexts(const TextSetting<Owner> (&settings)[N], Owner& owner) {
  for (const TextSetting<Owner>& setting : settings) {
    (owner.*setting.style).face = setting.initialFace;
    (owner.*setting.style).size = setting.initialSize;
  }
}

/// A face or size whose key is missing stays as it is.
template <class Owner, std::size_t N>
void LoadTexts(const TextSetting<Owner> (&settings)[N], const char* section, const IniStore& store,
               Owner& owner) {
  for (const TextSetting<Owner>& setting : settings) {
    TextStyle& style = owner.*setting.style;
    if (std::string face = store.GetValue(setting.faceKey, section); !face.empty()) {
      style.face = std::move(face);
    }
    if (const std::string size = store.GetValue(setting.sizeKey, section); !size.empty()) {
      style.size = ParseInt(size.c_str());
    }
  }
}

/// Views differ in which of the two they save first.
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
    store.SetValue(setting.sizeKey, Format("%i", (owner.*setting.style).size), section);
  }
}

}  // namespace ferolin
