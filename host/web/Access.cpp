#include "web/Access.h"

#include <utility>

namespace host {

namespace {

constexpr const char* KEY_ARGUMENT = "key";

}  // namespace

Access::Access(std::optional<AccessKeys> keys, int port, bool isEncrypted)
    : keys(std::move(keys)),
      cookieName("ferolin_" + std::to_string(port)),
      isEncrypted(isEncrypted) {}

Role Access::FindRole(const Request& request) const {
  if (!keys) {
    return Role::CONTROL;
  }
  constexpr std::string_view BEARER = "Bearer ";
  const std::string header = request.GetHeader("Authorization");
  if (header.starts_with(BEARER)) {
    return keys->FindRole(std::string_view(header).substr(BEARER.size()));
  }
  return keys->FindRole(request.GetCookie(cookieName));
}

std::optional<Reply> Access::TakeKey(const Request& request) const {
  const std::string key = request.GetArgument(KEY_ARGUMENT);
  if (!keys || keys->FindRole(key) == Role::NONE) {
    return std::nullopt;
  }
  constexpr unsigned SEE_OTHER = 303;
  Reply reply = TextReply(SEE_OTHER, "The key is kept.");
  reply.headers.emplace_back("Location", request.GetPath());
  reply.headers.emplace_back("Set-Cookie", cookieName + "=" + key +
                                               "; Path=/; Max-Age=31536000; HttpOnly; "
                                               "SameSite=Strict" +
                                               (isEncrypted ? "; Secure" : ""));
  return reply;
}

}  // namespace host
