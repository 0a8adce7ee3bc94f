// Which path has which answer.
#pragma once

#include <optional>
#include <string>

#include "web/Access.h"
#include "web/DriveBook.h"
#include "web/EventStreams.h"
#include "web/Exchange.h"
#include "web/Metrics.h"
#include "web/Reply.h"
#include "web/Request.h"
#include "web/RequestGuard.h"
#include "web/ViewFrames.h"

namespace host {

/// Nothing else than what stands in its table is answered. For the server's thread.
class Router {
 public:
  static constexpr std::size_t LARGEST_BODY = 4096;

  /// All arguments by reference outlive the router.
  Router(const RequestGuard& guard, const Access& access, const std::string& home,
         Exchange& exchange, ViewFrames& frames, const EventStreams& streams,
         const ServerCounts& counts);

  /// What can be refused before the body has come; nothing when all is well.
  std::optional<Reply> Refuse(const Request& request) const;

  /// Answers a whole request that was not refused.
  Reply Answer(const Request& request);

 private:
  struct Route {
    const char* path;
    const char* method;
    Role role;
    Reply (Router::*answer)(const Request& request);
  };

  static const Route* FindRoute(const std::string& path);

  Reply AnswerReadouts(const Request& request);
  Reply AnswerEvents(const Request& request);
  Reply AnswerFrame(const Request& request);
  Reply AnswerInput(const Request& request);
  Reply AnswerDrives(const Request& request);
  Reply AnswerDrive(const Request& request);
  Reply AnswerMetrics(const Request& request);

  const RequestGuard& guard;
  const Access& access;
  const DriveBook drives;
  Exchange& exchange;
  ViewFrames& frames;
  const EventStreams& streams;
  const ServerCounts& counts;
};

}  // namespace host
