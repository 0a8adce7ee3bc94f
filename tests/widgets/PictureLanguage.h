// The language of the program's pictures.
#pragma once

namespace ferolin {

/// Set before anything runs, so that lists of test cases may depend on it.
extern const bool IS_RUSSIAN;
inline const char* GetPictureLanguage() {
  return IS_RUSSIAN ? "RUS" : "ENU";
}

}  // namespace ferolin
