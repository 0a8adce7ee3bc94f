// What a misspelled word was probably meant to be.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace host {

/// The candidate that `word` resembles most, the first of equals; nothing when it resembles none.
/// Upper and lower case (of Latin letters) count as the same.
std::optional<std::string> FindSimilar(const std::string& word,
                                       const std::vector<std::string>& candidates);

/// "; did you mean Speed?"; empty when `word` resembles no candidate.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& candidates);

}  // namespace host
