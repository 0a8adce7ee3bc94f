// Bytes of a receiver, through the splitter into the fix, the track and the read-outs.
#include <algorithm>
#include <cstring>

#include "TryInput.h"
#include "engine/SensorTable.h"
#include "gps/FixRecord.h"
#include "gps/SentenceSplitter.h"

/// The first byte says how many bytes a read returns.
void TryInput(const unsigned char* data, std::size_t size) {
  if (size == 0) {
    return;
  }
  const std::size_t atOnce = data[0] + 1U;
  ferolin::FixRecord fix;
  ferolin::SensorTable sensors(fix);
  ferolin::SentenceSplitter splitter;
  for (std::size_t at = 1; at < size;) {
    const std::size_t count = std::min({atOnce, size - at, std::size_t{splitter.GetReadSpace()}});
    std::memcpy(splitter.GetReadPosition(), data + at, count);
    at += count;
    splitter.Scan(count, [&](const char* sentence) {
      if (fix.ParseSentence(sentence) != 0) {
        sensors.Update(fix);
      }
    });
  }
}
