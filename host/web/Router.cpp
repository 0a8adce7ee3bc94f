#include "web/Router.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "web/EmbeddedFile.h"
#include "web/InputText.h"
#include "web/ReadoutText.h"

namespace host {

namespace {

constexpr unsigned NO_CONTENT = 204;
constexpr unsigned NOT_MODIFIED = 304;
constexpr unsigned MALFORMED = 400;
constexpr unsigned UNAUTHORIZED = 401;
constexpr unsigned NOT_ALLOWED = 403;
constexpr unsigned UNKNOWN_PATH = 404;
constexpr unsigned OTHER_METHOD = 405;
constexpr unsigned LENGTH_REQUIRED = 411;
constexpr unsigned TOO_LARGE = 413;
constexpr unsigned OTHER_TYPE = 415;
constexpr unsigned UNAVAILABLE = 503;

constexpr std::string_view DRIVE_PREFIX = "/api/drives/";
constexpr std::string_view DRIVE_SUFFIX = ".gpx";

const EmbeddedFile* FindFile(const std::string& path) {
  const auto files = GetEmbeddedFiles();
  const auto found = std::ranges::find(files, path, &EmbeddedFile::path);
  return found == files.end() ? nullptr : &*found;
}

/// Number of "/api/drives/N.gpx".
std::optional<std::int64_t> FindDriveNumber(std::string_view path) {
  if (!path.starts_with(DRIVE_PREFIX) || !path.ends_with(DRIVE_SUFFIX) ||
      path.size() <= DRIVE_PREFIX.size() + DRIVE_SUFFIX.size()) {
    return std::nullopt;
  }
  path.remove_prefix(DRIVE_PREFIX.size());
  path.remove_suffix(DRIVE_SUFFIX.size());
  std::int64_t number = 0;
  const auto result = std::from_chars(path.data(), path.data() + path.size(), number);
  const bool isWhole = result.ec == std::errc() && result.ptr == path.data() + path.size();
  return isWhole && number > 0 ? std::optional(number) : std::nullopt;
}

Reply AnswerFile(const EmbeddedFile& file, const Request& request) {
  Reply reply;
  reply.type = file.type;
  reply.headers.emplace_back("ETag", file.tag);
  reply.caching = "no-cache";
  if (request.GetHeader("If-None-Match") == file.tag) {
    reply.status = NOT_MODIFIED;
  } else {
    reply.body = file.content;
  }
  return reply;
}

Reply RefuseMethod(const char* allowed) {
  Reply reply =
      TextReply(OTHER_METHOD, "This can only be asked with " + std::string(allowed) + ".");
  reply.headers.emplace_back("Allow", allowed);
  return reply;
}

Reply RefuseStranger() {
  Reply reply = TextReply(
      UNAUTHORIZED,
      "A key is needed: open one of the two links that the program printed when it started. If "
      "you have just opened one from another page, load this page again.");
  reply.headers.emplace_back("WWW-Authenticate", "Bearer realm=\"ferolin\"");
  return reply;
}

/// A body is taken with a POST only, and only with its length.
std::optional<Reply> RefuseBody(const Request& request) {
  const std::string length = request.GetHeader("Content-Length");
  const bool isPost = request.GetMethod() == "POST";
  if (request.CountHeaders("Transfer-Encoding") > 0 || (isPost && length.empty())) {
    return TextReply(LENGTH_REQUIRED, "The length of the content is needed.");
  }
  std::size_t bytes = 0;
  const auto result = std::from_chars(length.data(), length.data() + length.size(), bytes);
  const bool isTooLarge =
      result.ec == std::errc::result_out_of_range || bytes > (isPost ? Router::LARGEST_BODY : 0);
  return isTooLarge ? std::optional(TextReply(TOO_LARGE, "That is too much.")) : std::nullopt;
}

}  // namespace

Router::Router(const RequestGuard& guard, const Access& access, const std::string& home,
               Exchange& exchange, ViewFrames& frames, const EventStreams& streams,
               const ServerCounts& counts)
    : guard(guard),
      access(access),
      drives(home),
      exchange(exchange),
      frames(frames),
      streams(streams),
      counts(counts) {}

const Router::Route* Router::FindRoute(const std::string& path) {
  static constexpr Route ROUTES[] = {
      {"/api/readouts", "GET", Role::LOOK, &Router::AnswerReadouts},
      {"/events", "GET", Role::LOOK, &Router::AnswerEvents},
      {"/views/frame.png", "GET", Role::LOOK, &Router::AnswerFrame},
      {"/views/input", "POST", Role::CONTROL, &Router::AnswerInput},
      {"/api/drives", "GET", Role::LOOK, &Router::AnswerDrives},
      {"/metrics", "GET", Role::LOOK, &Router::AnswerMetrics},
  };
  static constexpr Route DRIVE = {"", "GET", Role::LOOK, &Router::AnswerDrive};
  const auto* const found =
      std::ranges::find_if(ROUTES, [&path](const Route& route) { return path == route.path; });
  if (found != std::end(ROUTES)) {
    return found;
  }
  return FindDriveNumber(path) ? &DRIVE : nullptr;
}

std::optional<Reply> Router::Refuse(const Request& request) const {
  if (std::optional<Reply> refusal = guard.Refuse(request)) {
    return refusal;
  }
  const EmbeddedFile* const file = FindFile(request.GetPath());
  if (std::optional<Reply> reply = access.TakeKey(request); reply && file != nullptr) {
    return reply;
  }
  const Role role = access.FindRole(request);
  if (role == Role::NONE) {
    return RefuseStranger();
  }
  const Route* const route = FindRoute(request.GetPath());
  if (file == nullptr && route == nullptr) {
    return TextReply(UNKNOWN_PATH, "There is nothing here.");
  }
  const char* const method = file != nullptr ? "GET" : route->method;
  const bool isHead = request.GetMethod() == "HEAD" && file != nullptr;
  if (request.GetMethod() != method && !isHead) {
    return RefuseMethod(method);
  }
  if (route != nullptr && route->role == Role::CONTROL && role != Role::CONTROL) {
    return TextReply(NOT_ALLOWED, "This link is for looking only.");
  }
  return RefuseBody(request);
}

Reply Router::Answer(const Request& request) {
  if (const EmbeddedFile* const file = FindFile(request.GetPath())) {
    return AnswerFile(*file, request);
  }
  return (this->*FindRoute(request.GetPath())->answer)(request);
}

Reply Router::AnswerReadouts(const Request& /*request*/) {
  Reply reply;
  reply.type = "application/json";
  reply.body = DescribeReadouts(*exchange.GetSnapshot(), std::chrono::steady_clock::now()) + "\n";
  return reply;
}

Reply Router::AnswerEvents(const Request& /*request*/) {
  Reply reply;
  reply.type = "text/event-stream";
  reply.isStream = true;
  return reply;
}

/// While nobody listens no picture is drawn.
Reply Router::AnswerFrame(const Request& /*request*/) {
  if (!frames.HasPicture() || streams.CountViewers() == 0) {
    return TextReply(UNAVAILABLE,
                     "There is no picture: it is drawn while /events?views=1 is read.");
  }
  Reply reply;
  reply.type = "image/png";
  reply.body = frames.GetPng();
  reply.headers.emplace_back("X-Frame", std::to_string(frames.GetNumber()));
  return reply;
}

Reply Router::AnswerInput(const Request& request) {
  if (!request.GetHeader("Content-Type").starts_with("application/json")) {
    return TextReply(OTHER_TYPE, "The content must be application/json.");
  }
  const std::optional<RemoteInput> input = ParseInput(request.body);
  if (!input) {
    return TextReply(MALFORMED, "The content is not understood.");
  }
  exchange.PutInput(*input);
  Reply reply;
  reply.status = NO_CONTENT;
  return reply;
}

Reply Router::AnswerDrives(const Request& /*request*/) {
  Reply reply;
  reply.work = [book = drives] { return book.List(); };
  return reply;
}

Reply Router::AnswerDrive(const Request& request) {
  Reply reply;
  reply.work = [book = drives, number = *FindDriveNumber(request.GetPath())] {
    return book.Export(number);
  };
  return reply;
}

Reply Router::AnswerMetrics(const Request& /*request*/) {
  Reply reply;
  reply.type = "text/plain; version=0.0.4; charset=utf-8";
  reply.body = DescribeMetrics(*exchange.GetSnapshot(), counts, std::chrono::steady_clock::now());
  return reply;
}

}  // namespace host
