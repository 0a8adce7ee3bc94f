// Who may do what.
#pragma once

#include <optional>
#include <string>

#include "web/AccessKeys.h"
#include "web/Reply.h"
#include "web/Request.h"

namespace host {

/// Finds the key of a request: that of its cookie, or for programs that of the header
/// Authorization. Without keys everybody may do everything.
class Access {
 public:
  /// `port` is part of the cookie's name: cookies are shared between the ports of an address.
  Access(std::optional<AccessKeys> keys, int port, bool isEncrypted);

  Role FindRole(const Request& request) const;

  /// The answer to a link with a key: the same page without it, and the cookie. Nothing when the
  /// request has no valid key in its query.
  std::optional<Reply> TakeKey(const Request& request) const;

 private:
  const std::optional<AccessKeys> keys;
  const std::string cookieName;
  const bool isEncrypted;
};

}  // namespace host
