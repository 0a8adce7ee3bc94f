#include "run/SettingsMerge.h"

#include <set>
#include <utility>

namespace host {

namespace {

std::string_view Trim(std::string_view text) {
  constexpr std::string_view BLANKS = " \t\r\n";
  const std::size_t first = text.find_first_not_of(BLANKS);
  return first == std::string_view::npos
             ? std::string_view()
             : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

/// Calls `onKey` with section, key and line of every key. A "[" anywhere makes a line a header.
template <class OnKey>
void ReadKeys(std::string_view text, OnKey onKey) {
  std::string_view section;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = Trim(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    const bool isCommentedOut = line.starts_with('#') || line.starts_with(';');
    const std::string_view active = isCommentedOut ? Trim(line.substr(1)) : line;
    if (const std::size_t bracket = active.find('['); bracket != std::string_view::npos) {
      section = active.substr(bracket + 1);
      section = section.substr(0, section.find(']'));
    } else if (const std::size_t equals = active.find('='); equals != std::string_view::npos) {
      onKey(section, active.substr(0, equals), line);
    }
  }
}

using Key = std::pair<std::string, std::string>;

std::set<Key> ListKeys(std::string_view text) {
  std::set<Key> keys;
  ReadKeys(text, [&](std::string_view section, std::string_view key, std::string_view) {
    keys.emplace(section, key);
  });
  return keys;
}

}  // namespace

std::string AddMissingSettings(std::string settings, std::string_view older) {
  std::set<Key> known = ListKeys(settings);
  std::string added;
  std::string addedSection;
  ReadKeys(older, [&](std::string_view section, std::string_view key, std::string_view line) {
    if (!known.emplace(section, key).second) {
      return;
    }
    if (added.empty() || addedSection != section) {
      addedSection = section;
      added.append("[").append(section).append("]\n");
    }
    added.append(line).append("\n");
  });
  if (!added.empty() && !settings.empty() && settings.back() != '\n') {
    settings += '\n';
  }
  return settings + added;
}

}  // namespace host
