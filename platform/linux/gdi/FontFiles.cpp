#include "gdi/FontFiles.h"

#include <fontconfig/fontconfig.h>
#include <strings.h>

#include <atomic>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "files/UnreadableFiles.h"
#include "gdi/RegisteredFonts.h"
#include "handheld.h"

namespace handheld::gdi {

namespace {

struct DestroyPattern {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

std::atomic<bool> lacksFonts = false;

/// Family name of a font file; empty when the file is no font.
std::string FamilyOf(const std::string& path) {
  int faces = 0;
  const Pattern pattern(
      FcFreeTypeQuery(reinterpret_cast<const FcChar8*>(path.c_str()), 0, nullptr, &faces));
  FcChar8* family = nullptr;
  if (pattern == nullptr ||
      FcPatternGetString(pattern.get(), FC_FAMILY, 0, &family) != FcResultMatch) {
    return {};
  }
  return reinterpret_cast<const char*>(family);
}

FontFile FindAdded(const std::string& faceName) {
  static std::map<std::string, std::string>& families = *new std::map<std::string, std::string>;
  for (const std::string& path : RegisteredFonts()) {
    auto family = families.find(path);
    if (family == families.end()) {
      family = families.emplace(path, FamilyOf(path)).first;
      if (family->second.empty()) {
        AddUnreadableFile(path);
      }
    }
    if (strcasecmp(family->second.c_str(), faceName.c_str()) == 0) {
      return {path, 0};
    }
  }
  return {};
}

/// Face that fontconfig does not know as a substitute; empty for all others. The widths of these two
/// are within 2 % of each other.
std::string SubstituteFor(const std::string& faceName) {
  return strcasecmp(faceName.c_str(), "Tahoma") == 0 ? "DejaVu Sans Condensed" : "";
}

/// Fontconfig substitutes fonts of the same proportions for well-known faces.
FontFile FindInstalled(const std::string& faceName, FontWeight weight) {
  const Pattern wanted(FcPatternCreate());
  for (const std::string& name : {faceName, SubstituteFor(faceName)}) {
    if (!name.empty()) {
      FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.c_str()));
    }
  }
  FcPatternAddInteger(wanted.get(), FC_WEIGHT,
                      weight == FontWeight::BOLD ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  const Pattern match(FcFontMatch(nullptr, wanted.get(), &result));
  FcChar8* path = nullptr;
  int index = 0;
  if (match == nullptr || FcPatternGetString(match.get(), FC_FILE, 0, &path) != FcResultMatch) {
    return {};
  }
  FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
  return {reinterpret_cast<const char*>(path), index};
}

}  // namespace

FontFile FindFontFile(const std::u16string& faceName, FontWeight weight) {
  const std::string name = Utf8FromWide(faceName);
  if (FontFile added = FindAdded(name); !added.path.empty()) {
    return added;
  }
  using Key = std::pair<std::string, FontWeight>;
  static std::map<Key, FontFile>& installed = *new std::map<Key, FontFile>;
  const Key key(name, weight);
  auto found = installed.find(key);
  if (found == installed.end()) {
    found = installed.emplace(key, FindInstalled(name, weight)).first;
    lacksFonts = lacksFonts || found->second.path.empty();
  }
  return found->second;
}

}  // namespace handheld::gdi

namespace handheld {

bool LacksFonts() {
  return gdi::lacksFonts;
}

}  // namespace handheld
