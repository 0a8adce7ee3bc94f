// A locale whose decimal point is a comma.
#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

#include "support/TempFolder.h"

namespace testing_support {

/// Sets the process's locale while it lives, and the plain locale afterwards. Compiles the locale,
/// which takes a second, so that machines need not have one installed.
class CommaLocale {
 public:
  CommaLocale() {
    const std::string compile = "localedef -i de_DE -f UTF-8 " + folder.Path(NAME);
    const bool isMade = std::system(compile.c_str()) == 0;
    setenv("LOCPATH", folder.Path().c_str(), 1);
    isSet = isMade && std::setlocale(LC_ALL, NAME) != nullptr;
  }
  ~CommaLocale() {
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  /// False when it could not be made; the program localedef is in Debian's package "locales".
  bool IsSet() const { return isSet; }

 private:
  static constexpr const char* NAME = "de_DE.UTF-8";

  TempFolder folder;
  bool isSet = false;
};

}  // namespace testing_support
