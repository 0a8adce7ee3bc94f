#include "web/RequestGuard.h"

#include <arpa/inet.h>
#include <strings.h>

#include <algorithm>
#include <string_view>

namespace host {

namespace {

constexpr unsigned BAD_REQUEST = 400;
constexpr unsigned FORBIDDEN = 403;
constexpr unsigned MISDIRECTED = 421;

std::string ToLower(std::string text) {
  std::ranges::transform(text, text.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return text;
}

bool IsAddress(const std::string& text) {
  in6_addr buffer = {};
  return inet_pton(AF_INET, text.c_str(), &buffer) == 1;
}

/// In brackets.
bool IsBracketedAddress(const std::string& text) {
  in6_addr buffer = {};
  const bool hasBrackets = text.size() > 2 && text.front() == '[' && text.back() == ']';
  return hasBrackets && inet_pton(AF_INET6, text.substr(1, text.size() - 2).c_str(), &buffer) == 1;
}

/// "name" of "name:8947"; empty when what follows the colon is no port.
std::string WithoutPort(const std::string& host) {
  const std::size_t colon = host.rfind(':');
  if (colon == std::string::npos || host.ends_with(']')) {
    return host;
  }
  const bool isPort = host.find_first_not_of("0123456789", colon + 1) == std::string::npos;
  return isPort ? host.substr(0, colon) : "";
}

/// "name:8947" of "http://name:8947".
std::string GetAuthority(const std::string& origin) {
  constexpr std::string_view SEPARATOR = "://";
  const std::size_t start = origin.find(SEPARATOR);
  return start == std::string::npos ? "" : origin.substr(start + SEPARATOR.size());
}

/// A link on another site that leads here.
bool IsLink(const Request& request) {
  return request.GetHeader("Sec-Fetch-Mode") == "navigate" &&
         request.GetHeader("Sec-Fetch-Dest") == "document" && request.GetMethod() != "POST";
}

bool IsForeign(const Request& request) {
  const std::string origin = request.GetHeader("Origin");
  const bool hasOtherOrigin = request.CountHeaders("Origin") > 0 &&
                              ToLower(GetAuthority(origin)) != ToLower(request.GetHeader("Host"));
  const std::string site = request.GetHeader("Sec-Fetch-Site");
  const bool isOtherSite = site == "cross-site" || site == "same-site";
  return hasOtherOrigin || (isOtherSite && !IsLink(request));
}

}  // namespace

bool RequestGuard::IsOwn(const std::string& host) const {
  const std::string name = ToLower(WithoutPort(host));
  const auto isName = [&name](const std::string& each) { return ToLower(each) == name; };
  return IsAddress(name) || IsBracketedAddress(name) || name == "localhost" ||
         (name.ends_with(".local") && name.size() > std::string_view(".local").size()) ||
         std::ranges::any_of(names, isName);
}

std::optional<Reply> RequestGuard::Refuse(const Request& request) const {
  if (request.CountHeaders("Host") > 1) {
    return TextReply(BAD_REQUEST, "The request names several hosts.");
  }
  if (!IsOwn(request.GetHeader("Host"))) {
    return TextReply(MISDIRECTED,
                     "This name is not known here. Use the address, a name that ends in .local, or "
                     "start the program with --web-name NAME.");
  }
  if (IsForeign(request)) {
    return TextReply(FORBIDDEN, "Pages of other sites may not ask here.");
  }
  return std::nullopt;
}

}  // namespace host
