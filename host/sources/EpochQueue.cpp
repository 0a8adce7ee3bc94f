#include "sources/EpochQueue.h"

#include <utility>

namespace host {

EpochQueue::EpochQueue(Bridge bridgeUse)
    : splitter(bridgeUse == Bridge::ON ? &bridge : nullptr,
               [this](Epoch epoch) { Push(std::move(epoch)); }),
      takeFix([this](const Fix& fix) { fixes.push_back(fix); }),
      fixReader([this](const Fix& fix) { takeFix(fix); }) {
  splitter.ReadFixesWith(fixReader);
}

void EpochQueue::Push(Epoch epoch) {
  pieces.push_back({std::move(epoch), std::exchange(fixes, {})});
}

EpochQueue::Piece EpochQueue::TakeFirst() {
  Piece piece = std::move(pieces.front());
  pieces.pop_front();
  return piece;
}

std::vector<Fix> EpochQueue::TakeLastFixes() {
  return std::exchange(fixes, {});
}

void EpochQueue::Count(PositionFeed::Report& report) const {
  report.bridge = bridge.GetCounts();
  report.talkers = bridge.GetTalkers();
  report.sentences = splitter.GetSentences();
  report.linesDropped = splitter.GetLinesDropped();
  report.clockJumps = splitter.GetClockJumps();
}

}  // namespace host
