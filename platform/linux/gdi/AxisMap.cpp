#include "gdi/AxisMap.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace handheld::gdi {

namespace {

/// Pixel of a side of `to` pixels under the centre of pixel `index` of a side of `from` pixels,
/// both counted from their starts. On a border between two pixels the lower one.
int Counterpart(std::int64_t index, std::int64_t from, std::int64_t to) {
  return static_cast<int>(((2 * index + 1) * to - 1) / (2 * from));
}

int Place(const Side& side, int index) {
  return side.length > 0 ? side.start + index : side.start - index;
}

/// Range of indices whose places lie in low .. high - 1; `last` is one behind the last.
SourceRange IndicesInside(const Side& side, int low, int high) {
  const int count = std::abs(side.length);
  const std::int64_t first =
      side.length > 0 ? std::int64_t{low} - side.start : std::int64_t{side.start} - high + 1;
  const std::int64_t end = first + (std::int64_t{high} - low);
  return {static_cast<int>(std::clamp<std::int64_t>(first, 0, count)),
          static_cast<int>(std::clamp<std::int64_t>(end, 0, count))};
}

}  // namespace

AxisMap::AxisMap(Side target, Side source, int low, int high, int sourceSize, Shrinking shrinking) {
  if (low >= high || target.length == 0 || source.length == 0) {
    return;
  }
  if (std::abs(target.length) >= std::abs(source.length)) {
    Stretch(target, source, low, high, sourceSize);
  } else {
    Shrink(target, source, low, high, sourceSize, shrinking);
  }
  Classify();
}

void AxisMap::Stretch(Side target, Side source, int low, int high, int sourceSize) {
  const SourceRange indices = IndicesInside(target, low, high);
  const int targetCount = std::abs(target.length);
  const int sourceCount = std::abs(source.length);
  ranges.reserve(static_cast<std::size_t>(indices.last - indices.first));
  for (int index = indices.first; index < indices.last; ++index) {
    const int from = Place(source, Counterpart(index, targetCount, sourceCount));
    if (from < 0 || from >= sourceSize) {
      continue;
    }
    if (ranges.empty() || target.length < 0) {
      begin = Place(target, index);
    }
    ranges.push_back({from, from});
  }
  if (target.length < 0) {
    std::reverse(ranges.begin(), ranges.end());
  }
}

void AxisMap::Shrink(Side target, Side source, int low, int high, int sourceSize,
                     Shrinking shrinking) {
  SourceRange indices = IndicesInside(source, 0, sourceSize);
  const int targetCount = std::abs(target.length);
  const int sourceCount = std::abs(source.length);
  // An unmirrored copy onto a single pixel leaves out the last source pixel, as on the device.
  if (shrinking == Shrinking::KEEP_ALL && target.length == 1 && source.length > 1) {
    indices.last = std::min(indices.last, sourceCount - 1);
  }
  int lastPlace = low - 1;
  for (int index = indices.first; index < indices.last; ++index) {
    const int place = Place(target, Counterpart(index, sourceCount, targetCount));
    if (place < low || place >= high) {
      continue;
    }
    const int from = Place(source, index);
    if (!ranges.empty() && place == lastPlace) {
      SourceRange& range = ranges.back();
      if (shrinking == Shrinking::KEEP_ALL) {
        range = {std::min(range.first, from), std::max(range.last, from)};
      } else if (shrinking == Shrinking::KEEP_LAST) {
        range = {from, from};
      }
      continue;
    }
    if (ranges.empty() || target.length < 0) {
      begin = place;
    }
    ranges.push_back({from, from});
    lastPlace = place;
  }
  if (target.length < 0) {
    std::reverse(ranges.begin(), ranges.end());
  }
}

void AxisMap::Classify() {
  isSingle = std::all_of(ranges.begin(), ranges.end(),
                         [](const SourceRange& range) { return range.first == range.last; });
  if (!isSingle || ranges.empty()) {
    return;
  }
  const auto hasStep = [&](int wanted) {
    for (std::size_t i = 1; i < ranges.size(); ++i) {
      if (ranges[i].first - ranges[i - 1].first != wanted) {
        return false;
      }
    }
    return true;
  };
  step = hasStep(1) ? 1 : hasStep(-1) ? -1 : 0;
}

}  // namespace handheld::gdi
