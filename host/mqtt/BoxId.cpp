#include "mqtt/BoxId.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

#include "base/SafeFile.h"
#include "base/TopicName.h"

namespace host {

namespace {

constexpr const char* ID_FILE = "mqtt-id";

std::string MakeId() {
  std::array<char, 16> text;
  const int length = std::snprintf(text.data(), text.size(), "%08x", std::random_device()());
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

std::string ChooseBoxId(const std::string& asked, const std::string& home) {
  const std::filesystem::path file = std::filesystem::path(home) / ID_FILE;
  std::ifstream stream(file);
  std::string kept;
  std::getline(stream, kept);
  if (IsTopicName(kept) && (asked.empty() || asked == kept)) {
    return kept;
  }
  std::string id = asked.empty() ? MakeId() : asked;
  ReplaceFile(file, id + "\n");
  return id;
}

}  // namespace host
