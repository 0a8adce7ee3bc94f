// Bytes of a receiver, through the bridge to what the engine reads, and without it to what is kept.
#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "TryInput.h"
#include "sources/EpochSplitter.h"
#include "sources/FixReader.h"
#include "sources/ReceiverBridge.h"

namespace {

/// Whole sentences that end in CR LF and fit into the engine's buffer.
void Check(const host::Epoch& epoch) {
  const std::string_view bytes = epoch.bytes;
  const bool isWhole = bytes.empty() || (bytes.front() == '$' && bytes.ends_with("\r\n"));
  if (bytes.size() > host::EpochSplitter::MAX_BYTES || !isWhole ||
      std::ranges::count(bytes, '\r') != std::ranges::count(bytes, '$')) {
    std::abort();
  }
}

}  // namespace

/// The first byte says how many bytes come at once.
void TryInput(const unsigned char* data, std::size_t size) {
  if (size == 0) {
    return;
  }
  const std::size_t atOnce = data[0] + 1U;
  host::ReceiverBridge bridge;
  host::FixReader fixes([](const host::Fix&) {});
  host::EpochSplitter splitter(&bridge, Check);
  splitter.ReadFixesWith(fixes);
  host::FixReader rawFixes([](const host::Fix&) {});
  host::EpochSplitter rawSplitter(nullptr, [](const host::Epoch&) {});
  rawSplitter.ReadFixesWith(rawFixes);
  for (std::size_t at = 1; at < size; at += atOnce) {
    const std::string_view bytes(reinterpret_cast<const char*>(data) + at,
                                 std::min(atOnce, size - at));
    splitter.Add(bytes);
    rawSplitter.Add(bytes);
  }
  splitter.Finish();
  rawSplitter.Finish();
}
