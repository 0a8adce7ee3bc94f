// Keeps requests of foreign pages away.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "web/Reply.h"
#include "web/Request.h"

namespace host {

class RequestGuard {
 public:
  /// `names` are those of this machine, besides its addresses, localhost and all in .local.
  explicit RequestGuard(std::vector<std::string> names) : names(std::move(names)) {}

  /// The refusal, or nothing: a name that another site could point here gets 421, a request that
  /// another site's page makes 403.
  std::optional<Reply> Refuse(const Request& request) const;

  /// Whether a request to this host, as in the header Host, is meant for this server.
  bool IsOwn(const std::string& host) const;

 private:
  const std::vector<std::string> names;
};

}  // namespace host
