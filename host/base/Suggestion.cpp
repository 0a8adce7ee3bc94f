#include "base/Suggestion.h"

#include <algorithm>

namespace host {

namespace {

/// A shorter beginning would fit too many words.
constexpr std::size_t SHORTEST_BEGINNING = 3;
/// At most one letter in three may be wrong.
constexpr std::size_t LETTERS_PER_CHANGE = 3;

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return text;
}

/// Letters to insert, remove, replace or swap with their neighbour to get from one word to the
/// other (optimal string alignment distance).
std::size_t CountChanges(const std::string& from, const std::string& to) {
  std::vector<std::vector<std::size_t>> changes(from.size() + 1,
                                                std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t j = 0; j <= to.size(); ++j) {
      if (i == 0 || j == 0) {
        changes[i][j] = i + j;
        continue;
      }
      const bool isSame = from[i - 1] == to[j - 1];
      changes[i][j] = std::min(
          {changes[i - 1][j] + 1, changes[i][j - 1] + 1, changes[i - 1][j - 1] + (isSame ? 0 : 1)});
      const bool isSwap = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isSwap) {
        changes[i][j] = std::min(changes[i][j], changes[i - 2][j - 2] + 1);
      }
    }
  }
  return changes[from.size()][to.size()];
}

/// A word that was cut short or continued ("full", "baudrate") counts as one change.
std::size_t Difference(const std::string& word, const std::string& candidate) {
  const std::size_t changes = CountChanges(word, candidate);
  const bool isLongEnough = std::min(word.size(), candidate.size()) >= SHORTEST_BEGINNING;
  const bool isContinued = word.starts_with(candidate) || candidate.starts_with(word);
  return isLongEnough && isContinued ? std::min<std::size_t>(changes, 1) : changes;
}

}  // namespace

std::optional<std::string> FindSimilar(const std::string& word,
                                       const std::vector<std::string>& candidates) {
  const std::string wanted = LowerCase(word);
  std::optional<std::string> best;
  std::size_t least = 0;
  for (const std::string& candidate : candidates) {
    const std::size_t difference = Difference(wanted, LowerCase(candidate));
    const bool isClose = difference * LETTERS_PER_CHANGE <= std::max(word.size(), candidate.size());
    if (isClose && (!best || difference < least)) {
      best = candidate;
      least = difference;
    }
  }
  return best;
}

std::string DidYouMean(const std::string& word, const std::vector<std::string>& candidates) {
  const std::optional<std::string> similar = FindSimilar(word, candidates);
  return similar ? "; did you mean " + *similar + "?" : "";
}

}  // namespace host
