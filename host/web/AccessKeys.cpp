#include "web/AccessKeys.h"

#include <sys/random.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "base/HostError.h"
#include "base/SafeFile.h"

namespace host {

namespace {

/// 120 bits in letters that are easily typed.
constexpr std::size_t KEY_LENGTH = 24;
constexpr std::string_view KEY_LETTERS = "abcdefghijkmnpqrstuvwxyz23456789";

std::string MakeKey() {
  std::array<std::uint8_t, KEY_LENGTH> bytes = {};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    throw HostError(std::string("cannot make a key: ") + std::strerror(errno));
  }
  std::string key;
  for (const std::uint8_t byte : bytes) {
    key += KEY_LETTERS[byte % KEY_LETTERS.size()];
  }
  return key;
}

bool IsKey(const std::string& text) {
  return text.size() == KEY_LENGTH && text.find_first_not_of(KEY_LETTERS) == std::string::npos;
}

/// Whether others could read the keys.
bool IsPrivate(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

bool IsSame(std::string_view one, std::string_view other) {
  unsigned difference = one.size() == other.size() ? 0 : 1;
  for (std::size_t i = 0; i < one.size(); ++i) {
    const char letter = other.empty() ? '\0' : other[i % other.size()];
    difference |= static_cast<unsigned char>(one[i] ^ letter);
  }
  return difference == 0;
}

}  // namespace

AccessKeys::AccessKeys(const std::string& home) {
  const std::string path = home + "/" + FILE_NAME;
  std::ifstream file(path);
  std::string lookName;
  std::string controlName;
  file >> lookName >> lookKey >> controlName >> controlKey;
  const bool isWhole = lookName == "look" && controlName == "control" && IsKey(lookKey) &&
                       IsKey(controlKey) && lookKey != controlKey;
  if (isWhole && IsPrivate(path)) {
    return;
  }
  lookKey = MakeKey();
  controlKey = MakeKey();
  // A file that others could read would keep its mode.
  std::error_code error;
  std::filesystem::remove(path, error);
  try {
    ReplaceFile(path, "look " + lookKey + "\ncontrol " + controlKey + "\n");
  } catch (const HostError& failure) {
    loss = failure.what();
  }
}

Role AccessKeys::FindRole(std::string_view key) const {
  const bool isControl = IsSame(controlKey, key);
  const bool isLook = IsSame(lookKey, key);
  if (isControl) {
    return Role::CONTROL;
  }
  return isLook ? Role::LOOK : Role::NONE;
}

}  // namespace host
