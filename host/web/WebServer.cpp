#include "web/WebServer.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

#include "base/HostError.h"

namespace host {

namespace {

constexpr unsigned INTERNAL_ERROR = 500;
constexpr unsigned BUSY = 503;
constexpr const char* ENDING = "The program is ending.";
constexpr std::size_t CONNECTION_MEMORY = 16 * 1024;
constexpr std::size_t STREAM_BLOCK = 4096;

/// How often streams, late requests and the picture are looked after.
constexpr std::chrono::milliseconds BEAT(500);
constexpr std::chrono::milliseconds PICTURE_BEAT(16);
constexpr std::chrono::seconds DRIVES_BEAT(10);

/// What every reply tells a browser: pages load nothing from elsewhere, and nobody may frame them.
constexpr std::array<std::pair<const char*, const char*>, 6> COMMON_HEADERS = {{
    {"Content-Security-Policy",
     "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob:; connect-src "
     "'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"X-Frame-Options", "DENY"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
}};

std::string ReadWhole(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(stream), {}};
  if (!stream.is_open() || stream.bad()) {
    throw HostError("cannot read " + path + ": " + std::strerror(errno));
  }
  return content;
}

std::optional<AccessKeys> MakeKeys(const ListeningSocket& socket, const std::string& home) {
  return socket.IsLocal() ? std::nullopt : std::optional<AccessKeys>(home);
}

/// A zero byte would end the path before what follows: text that has one stays as it was sent, and
/// is the path of nothing.
std::size_t Unescape(void* /*server*/, MHD_Connection* /*connection*/, char* text) {
  return std::strstr(text, "%00") == nullptr ? MHD_http_unescape(text) : std::strlen(text);
}

/// The library's own messages are about clients that misbehave.
void Ignore(void* /*server*/, const char* /*format*/, va_list /*values*/) {}

/// A stream and its connection, for the library.
struct StreamSource {
  std::shared_ptr<EventStream> stream;
  MHD_Connection* connection;
};

ssize_t ReadStream(void* source, std::uint64_t /*position*/, char* buffer, std::size_t size) {
  const auto& listener = *static_cast<StreamSource*>(source);
  return listener.stream->Read(listener.connection, buffer, size);
}

void FreeStream(void* source) {
  delete static_cast<StreamSource*>(source);
}

std::chrono::milliseconds Until(WebTime time) {
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(time - std::chrono::steady_clock::now());
  return std::max(left, std::chrono::milliseconds(0));
}

}  // namespace

struct WebServer::Exchanged {
  Exchanged(MHD_Connection* connection, const char* method, const char* path)
      : connection(connection), request(connection, method, path) {}

  MHD_Connection* const connection;
  Request request;
  bool hasBegun = false;
  /// Null unless it was answered with a stream.
  std::shared_ptr<EventStream> stream;
  /// Null unless the reply is made aside.
  std::shared_ptr<BackgroundWork::Job> job;
};

WebServer::WebServer(const Options& options, const std::string& home, Exchange& exchange)
    : exchange(exchange),
      socket(options.web->address, options.web->port),
      isEncrypted(!options.webCertificateFile.empty()),
      keys(MakeKeys(socket, home)),
      guard(options.webNames),
      access(keys, socket.GetPort(), isEncrypted),
      drives(home),
      texts(exchange, frames),
      streams([this](const EventStream& stream, EventStream::News news) {
        return Describe(stream, news);
      }),
      router(guard, access, home, exchange, frames, streams, counts),
      work([&exchange] { exchange.Wake(); }) {
  OpenDaemon(options);
}

WebServer::~WebServer() {
  isStopping = true;
  exchange.Wake();
  if (thread.joinable()) {
    thread.join();
  }
}

void WebServer::OpenDaemon(const Options& options) {
  unsigned flags = MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME | MHD_USE_ERROR_LOG;
  std::vector<MHD_OptionItem> more;
  if (isEncrypted) {
    certificate = ReadWhole(options.webCertificateFile);
    certificateKey = ReadWhole(options.webKeyFile);
    flags |= MHD_USE_TLS;
    more.push_back({MHD_OPTION_HTTPS_MEM_CERT, 0, certificate.data()});
    more.push_back({MHD_OPTION_HTTPS_MEM_KEY, 0, certificateKey.data()});
  }
  more.push_back({MHD_OPTION_END, 0, nullptr});
  daemon.reset(MHD_start_daemon(
      flags, 0, &WebServer::OnConnect, this, &WebServer::OnRequest, this,                   //
      MHD_OPTION_EXTERNAL_LOGGER, &Ignore, nullptr,                                         //
      MHD_OPTION_UNESCAPE_CALLBACK, &Unescape, nullptr,                                     //
      MHD_OPTION_LISTEN_SOCKET, socket.Release(),                                           //
      MHD_OPTION_NOTIFY_CONNECTION, &WebServer::OnConnection, this,                         //
      MHD_OPTION_NOTIFY_COMPLETED, &WebServer::OnCompleted, this,                           //
      MHD_OPTION_CONNECTION_LIMIT, Connections::MOST_CONNECTIONS,                           //
      MHD_OPTION_CONNECTION_MEMORY_LIMIT, CONNECTION_MEMORY,                                //
      MHD_OPTION_CONNECTION_TIMEOUT, static_cast<unsigned>(Connections::PATIENCE.count()),  //
      MHD_OPTION_STRICT_FOR_CLIENT, 1,                                                      //
      MHD_OPTION_ARRAY, more.data(),                                                        //
      MHD_OPTION_END));
  if (daemon == nullptr) {
    throw HostError(isEncrypted ? "cannot serve browsers: certificate and key do not fit"
                                : "cannot serve browsers");
  }
}

void WebServer::Start() {
  thread = std::thread([this] { Run(); });
}

std::vector<std::string> WebServer::DescribeLinks() const {
  if (!keys) {
    return {"for browsers on this machine: " + MakeLink(socket.GetHost(), "")};
  }
  std::vector<std::string> lines;
  if (!keys->GetLoss().empty()) {
    lines.push_back("these links are good for this run only: " + keys->GetLoss());
  }
  lines.push_back("to look: " + MakeLink(socket.GetHost(), keys->GetLookKey()));
  lines.push_back("to look and touch: " + MakeLink(socket.GetHost(), keys->GetControlKey()));
  return lines;
}

std::string WebServer::GetLinkForOthers() const {
  return keys ? MakeLink(socket.GetHost(), keys->GetControlKey()) : "";
}

std::string WebServer::MakeLink(const std::string& host, const std::string& key) const {
  return std::string(isEncrypted ? "https://" : "http://") + host + ":" +
         std::to_string(socket.GetPort()) + "/" + (key.empty() ? "" : "?key=" + key);
}

// The thread.

void WebServer::Run() {
  while (!isStopping) {
    Wait(connections.Count() > 0);
    TakeNews();
    ResumeFinishedWork();
    const WebTime now = std::chrono::steady_clock::now();
    if (streams.CountViewers() > 0) {
      LookAtPicture();
    }
    if (now >= nextBeat) {
      Beat(now);
    }
    MHD_run(daemon.get());
  }
  End();
}

/// Without connections nothing but a new one, or news, ends the wait.
void WebServer::Wait(bool hasBeat) const {
  const int epoll = MHD_get_daemon_info(daemon.get(), MHD_DAEMON_INFO_EPOLL_FD)->epoll_fd;
  std::array<pollfd, 2> waits = {{{epoll, POLLIN, 0}, {exchange.GetWakeDescriptor(), POLLIN, 0}}};
  int timeoutMs = -1;
  if (hasBeat) {
    const auto beat = streams.CountViewers() > 0 ? PICTURE_BEAT : Until(nextBeat);
    MHD_UNSIGNED_LONG_LONG ownMs = 0;
    const bool hasOwn = MHD_get_timeout(daemon.get(), &ownMs) == MHD_YES;
    timeoutMs = static_cast<int>(beat.count());
    timeoutMs = hasOwn ? static_cast<int>(std::min<MHD_UNSIGNED_LONG_LONG>(
                             ownMs, static_cast<MHD_UNSIGNED_LONG_LONG>(timeoutMs)))
                       : timeoutMs;
  }
  poll(waits.data(), waits.size(), timeoutMs);
  eventfd_t ignored = 0;
  eventfd_read(exchange.GetWakeDescriptor(), &ignored);
}

void WebServer::TakeNews() {
  TellFacts();
  for (const std::uint64_t stream : exchange.TakeLeft()) {
    streams.Tell(stream, EventStream::News::LEFT);
  }
  if (const std::uint64_t number = exchange.GetSnapshot()->update.number; number != updateTold) {
    updateTold = number;
    streams.Tell(EventStream::News::UPDATE);
  }
}

/// All but the name of the view and its dots per inch belong to the hello.
void WebServer::TellFacts() {
  WebFacts facts = exchange.GetFacts();
  if (facts == factsTold) {
    return;
  }
  std::swap(facts, factsTold);
  if (frames.HasPicture()) {
    streams.Tell(EventStream::News::VIEW);
  }
  facts.viewName = factsTold.viewName;
  facts.dpi = factsTold.dpi;
  if (facts != factsTold) {
    streams.Tell(EventStream::News::HELLO);
  }
}

void WebServer::LookAtPicture() {
  if (frames.Look(factsTold.window)) {
    streams.Tell(EventStream::News::VIEW);
  }
}

void WebServer::Beat(WebTime now) {
  nextBeat = now + BEAT;
  streams.Beat(now);
  connections.EndLate(now);
}

void WebServer::ResumeFinishedWork() {
  const auto finished = std::partition(atWork.begin(), atWork.end(),
                                       [](const Exchanged* each) { return !each->job->IsDone(); });
  std::for_each(finished, atWork.end(),
                [](const Exchanged* each) { MHD_resume_connection(each->connection); });
  atWork.erase(finished, atWork.end());
}

/// The library must not stop while connections are suspended; it runs on until they have ended.
void WebServer::End() {
  streams.End();
  for (const Exchanged* each : atWork) {
    MHD_resume_connection(each->connection);
  }
  atWork.clear();
  for (int i = 0; i < 3; ++i) {
    MHD_run(daemon.get());
  }
  daemon.reset();
}

// What the library calls.

MHD_Result WebServer::OnConnect(void* server, const sockaddr* address, socklen_t /*size*/) {
  return static_cast<WebServer*>(server)->connections.MayConnect(address) ? MHD_YES : MHD_NO;
}

void WebServer::OnConnection(void* server, MHD_Connection* connection, void** client,
                             MHD_ConnectionNotificationCode code) {
  auto& self = *static_cast<WebServer*>(server);
  if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
    self.connections.Remove(static_cast<Client*>(*client));
  } else {
    const auto* const address =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
    const auto* const descriptor =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
    *client = self.connections.Add(address->client_addr, descriptor->connect_fd,
                                   std::chrono::steady_clock::now());
  }
  self.counts.connections = self.connections.Count();
}

/// Called once with the headers, then for each part of the body, then to answer; after work aside
/// once more.
MHD_Result WebServer::OnRequest(void* server, MHD_Connection* connection, const char* path,
                                const char* method, const char* /*version*/, const char* data,
                                std::size_t* size, void** exchanged) {
  auto& self = *static_cast<WebServer*>(server);
  if (*exchanged == nullptr) {
    *exchanged = new Exchanged(connection, method, path);
  }
  auto& current = *static_cast<Exchanged*>(*exchanged);
  try {
    if (!std::exchange(current.hasBegun, true)) {
      return self.Begin(connection, current);
    }
    if (*size > 0) {
      current.request.body.append(data, *size);
      *size = 0;
      return MHD_YES;
    }
    return self.Go(connection, current);
  } catch (const std::exception& error) {
    return self.Send(connection, current, TextReply(INTERNAL_ERROR, error.what()));
  }
}

void WebServer::OnCompleted(void* server, MHD_Connection* /*connection*/, void** exchanged,
                            MHD_RequestTerminationCode /*code*/) {
  auto& self = *static_cast<WebServer*>(server);
  const auto* const ended = static_cast<Exchanged*>(*exchanged);
  if (ended == nullptr) {
    return;
  }
  if (ended->stream != nullptr) {
    self.streams.Remove(ended->stream);
    self.CountListeners();
  }
  std::erase(self.atWork, ended);
  ended->request.GetClient().awaitedSince = std::chrono::steady_clock::now();
  delete ended;
}

MHD_Result WebServer::Begin(MHD_Connection* connection, Exchanged& exchanged) {
  if (isStopping) {
    return Send(connection, exchanged, TextReply(BUSY, ENDING));
  }
  const std::optional<Reply> refusal = router.Refuse(exchanged.request);
  return refusal ? Send(connection, exchanged, *refusal) : MHD_YES;
}

MHD_Result WebServer::Go(MHD_Connection* connection, Exchanged& exchanged) {
  if (exchanged.job != nullptr) {
    return Send(connection, exchanged,
                exchanged.job->IsDone() ? exchanged.job->GetReply() : TextReply(BUSY, ENDING));
  }
  const Reply reply = router.Answer(exchanged.request);
  if (reply.isStream) {
    return SendStream(connection, exchanged, reply);
  }
  return reply.work ? StartWork(connection, exchanged, reply) : Send(connection, exchanged, reply);
}

MHD_Result WebServer::Send(MHD_Connection* connection, Exchanged& exchanged, const Reply& reply) {
  exchanged.request.GetClient().awaitedSince = WebTime::max();
  MHD_Response* response = nullptr;
  struct stat status = {};
  if (reply.file != nullptr && fstat(reply.file->Get(), &status) == 0) {
    response = MHD_create_response_from_fd(static_cast<std::size_t>(status.st_size),
                                           reply.file->Release());
  } else {
    response = MHD_create_response_from_buffer(
        reply.body.size(), const_cast<char*>(reply.body.data()), MHD_RESPMEM_MUST_COPY);
  }
  return Queue(connection, reply, response);
}

MHD_Result WebServer::SendStream(MHD_Connection* connection, Exchanged& exchanged,
                                 const Reply& reply) {
  const Request& request = exchanged.request;
  const Client& client = request.GetClient();
  const bool wantsViews = request.GetArgument("views") == "1";
  if (wantsViews && streams.CountViewers() == 0) {
    frames.Forget();
  }
  exchanged.stream = streams.Add({client.name, access.FindRole(request), wantsViews},
                                 client.isLocal, frames.HasPicture());
  if (exchanged.stream == nullptr) {
    return Send(connection, exchanged, TextReply(BUSY, "Too many pages are open."));
  }
  CountListeners();
  exchanged.request.GetClient().awaitedSince = WebTime::max();
  auto* const source = new StreamSource{exchanged.stream, connection};
  MHD_Response* const response = MHD_create_response_from_callback(
      MHD_SIZE_UNKNOWN, STREAM_BLOCK, &ReadStream, source, &FreeStream);
  return Queue(connection, reply, response);
}

void WebServer::CountListeners() {
  counts.streams = streams.Count();
  exchange.SetListeners(streams.Count());
  exchange.SetViewers(streams.CountViewers());
}

MHD_Result WebServer::StartWork(MHD_Connection* connection, Exchanged& exchanged,
                                const Reply& reply) {
  exchanged.job = work.Start(reply.work);
  if (exchanged.job == nullptr) {
    return Send(connection, exchanged, TextReply(BUSY, "Too many ask for drives; try again."));
  }
  exchanged.request.GetClient().awaitedSince = WebTime::max();
  atWork.push_back(&exchanged);
  MHD_suspend_connection(connection);
  return MHD_YES;
}

MHD_Result WebServer::Queue(MHD_Connection* connection, const Reply& reply,
                            MHD_Response* response) {
  ++counts.replies[reply.status];
  for (const auto& [name, value] : COMMON_HEADERS) {
    MHD_add_response_header(response, name, value);
  }
  MHD_add_response_header(response, MHD_HTTP_HEADER_CACHE_CONTROL, reply.caching);
  for (const auto& [name, value] : reply.headers) {
    MHD_add_response_header(response, name.c_str(), value.c_str());
  }
  if (!reply.type.empty()) {
    MHD_add_response_header(response, MHD_HTTP_HEADER_CONTENT_TYPE, reply.type.c_str());
  }
  const MHD_Result result = MHD_queue_response(connection, reply.status, response);
  MHD_destroy_response(response);
  return result;
}

std::string WebServer::Describe(const EventStream& stream, EventStream::News news) {
  switch (news) {
    case EventStream::News::HELLO:
      return texts.DescribeHello(stream.GetNumber(), stream.GetListener().role, CountDrives());
    case EventStream::News::VIEW:
      return texts.DescribeView();
    case EventStream::News::LEFT:
      return EventTexts::DescribeLeft();
    case EventStream::News::UPDATE:
      break;
  }
  return texts.DescribeUpdate();
}

std::size_t WebServer::CountDrives() {
  const WebTime now = std::chrono::steady_clock::now();
  if (now >= drivesCounted + DRIVES_BEAT) {
    driveCount = drives.Count();
    drivesCounted = now;
  }
  return driveCount;
}

}  // namespace host
