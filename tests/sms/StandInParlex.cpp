// Stands in for the sibling library that sends text messages and keeps what it was to send.
#include <windows.h>

#ifndef WITHOUT_ENTRY

#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<std::pair<std::u16string, std::string>> messages;

}  // namespace

extern "C" {

void WINAPI SendParlex(LPCWSTR recipient, LPCSTR message) {
  messages.emplace_back(recipient, message);
}

int CountMessages() {
  return static_cast<int>(messages.size());
}

LPCWSTR RecipientOf(int index) {
  return messages[static_cast<std::size_t>(index)].first.c_str();
}

LPCSTR MessageTo(int index) {
  return messages[static_cast<std::size_t>(index)].second.c_str();
}
}

#endif
