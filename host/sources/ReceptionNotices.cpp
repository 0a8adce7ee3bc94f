#include "sources/ReceptionNotices.h"

namespace host {

std::vector<std::string> ReceptionNotices::TakeNews(const Reception& now) {
  std::vector<std::string> news;
  const bool isCutOff = !now.trouble.empty();
  if (now.isSearch) {
    AddSearch(news, now);
  } else if (isCutOff && last.trouble.empty()) {
    news.push_back(now.trouble + "; trying again until it works");
  } else if (!isCutOff && !last.trouble.empty()) {
    news.push_back(sourceName + " is connected");
  }
  const bool fallsSilent = now.silentSeconds > 0 && last.silentSeconds == 0;
  const bool becomesNoise = now.hasNoise && !last.hasNoise;
  if (!isCutOff && now.silentSeconds > 0 && (fallsSilent || becomesNoise)) {
    news.push_back(Describe(now));
  }
  if (now.silentSeconds == 0 && last.silentSeconds > 0) {
    news.push_back("data again after " + std::to_string(last.silentSeconds) + " s");
  }
  last = now;
  return news;
}

/// Each step of a search is told once, however often it is repeated.
void ReceptionNotices::AddSearch(std::vector<std::string>& news, const Reception& now) {
  if (!now.trouble.empty()) {
    if (searched.insert(now.trouble).second) {
      news.push_back(now.trouble);
    }
  } else if (!now.found.empty() && (now.found != last.found || !last.trouble.empty())) {
    news.push_back("found a receiver: " + now.found);
    searched.clear();
  }
}

}  // namespace host
