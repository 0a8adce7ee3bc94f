// Bytes of a receiver, through the bridge to what the engine reads.
#include <algorithm>
#include <cstdlib>
#include <string_view>

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
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  const std::size_t atOnce = data[0] + 1U;
  host::ReceiverBridge bridge;
  host::FixReader fixes([](const host::Fix&) {});
  host::EpochSplitter splitter(&bridge, Check);
  splitter.ReadFixesWith(fixes);
  for (std::size_t at = 1; at < size; at += atOnce) {
    splitter.Add({reinterpret_cast<const char*>(data) + at, std::min(atOnce, size - at)});
  }
  splitter.Finish();
  fixes.Finish();
  return 0;
}
