#include "common/GpsdAddress.h"

namespace siblings {
namespace {

void SetUnlessEmpty(std::string& target, std::string_view text) {
  if (!text.empty()) {
    target = text;
  }
}

}  // namespace

GpsdAddress GpsdAddress::FromText(std::string_view text) {
  GpsdAddress address;
  const auto bracket = text.starts_with('[') ? text.find(']') : std::string_view::npos;
  if (bracket != std::string_view::npos) {
    SetUnlessEmpty(address.host, text.substr(1, bracket - 1));
    text.remove_prefix(bracket + 1);
    if (text.starts_with(':')) {
      SetUnlessEmpty(address.port, text.substr(1));
    }
    return address;
  }
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || colon != text.rfind(':')) {
    // No colon, or a bare IPv6 address.
    SetUnlessEmpty(address.host, text);
    return address;
  }
  SetUnlessEmpty(address.host, text.substr(0, colon));
  SetUnlessEmpty(address.port, text.substr(colon + 1));
  return address;
}

}  // namespace siblings
