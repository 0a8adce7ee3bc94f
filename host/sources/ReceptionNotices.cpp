#include "sources/ReceptionNotices.h"

namespace host {

std::vector<std::string> ReceptionNotices::TakeNews(const Reception& now) {
  std::vector<std::string> news;
  const bool isCutOff = !now.trouble.empty();
  if (isCutOff && last.trouble.empty()) {
    news.push_back(now.trouble + "; trying again until it works");
  }
  if (!isCutOff && !last.trouble.empty()) {
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

}  // namespace host
