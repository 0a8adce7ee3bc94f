#include "run/Theme.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

#include "base/HostError.h"
#include "handheld.h"

namespace host {

std::string ReadTheme(const std::string& name) {
  const std::string path = handheld::SharedFolder() + "/themes/" + name + ".ini";
  std::ifstream stream(path, std::ios::binary);
  std::string theme{std::istreambuf_iterator<char>(stream), {}};
  if (!stream.is_open() || stream.bad()) {
    throw HostError("cannot read the theme " + path + ": " + std::strerror(errno));
  }
  return theme;
}

}  // namespace host
