#include "base/TopicName.h"

namespace host {

namespace {

constexpr std::size_t LONGEST_NAME = 64;
constexpr std::string_view NAME_LETTERS =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";

}  // namespace

bool IsTopicName(std::string_view name) {
  return !name.empty() && name.size() <= LONGEST_NAME &&
         name.find_first_not_of(NAME_LETTERS) == std::string_view::npos;
}

}  // namespace host
