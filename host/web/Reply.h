// The answer to a request.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/FileDescriptor.h"

namespace host {

struct Reply {
  unsigned status = 200;
  std::string type = "text/plain; charset=utf-8";
  std::string body;
  std::vector<std::pair<std::string, std::string>> headers;
  /// Whether a browser may keep the reply: "no-cache" is to ask again whether it is still the same.
  const char* caching = "no-store";
  /// In place of the body when it is not null.
  std::shared_ptr<FileDescriptor> file;
  /// Gives the real reply, but takes long. Must not touch what belongs to the server's thread.
  std::function<Reply()> work;
  /// The reply is a stream of events.
  bool isStream = false;
};

/// One line of text.
inline Reply TextReply(unsigned status, const std::string& text) {
  Reply reply;
  reply.status = status;
  reply.body = text + "\n";
  return reply;
}

}  // namespace host
