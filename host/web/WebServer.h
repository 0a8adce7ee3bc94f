// Serves browsers.
#pragma once

#include <microhttpd.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "commandline/Options.h"
#include "web/Access.h"
#include "web/BackgroundWork.h"
#include "web/Connections.h"
#include "web/DriveBook.h"
#include "web/EventStreams.h"
#include "web/EventTexts.h"
#include "web/Exchange.h"
#include "web/ListeningSocket.h"
#include "web/Router.h"
#include "web/ViewFrames.h"

namespace host {

/// Answers browsers on a thread of its own, one after the other: no answer waits for anything, and
/// what takes long is done aside.
class WebServer {
 public:
  /// Listens at once, answers from Start on. `home` is the folder of keys and drives. The exchange
  /// outlives the server. Throws HostError when the address cannot be used.
  WebServer(const Options& options, const std::string& home, Exchange& exchange);
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  /// Ends all streams.
  ~WebServer();

  void Start();

  /// What to tell the user: where to look, with the keys where they are needed.
  std::vector<std::string> DescribeLinks() const;
  /// The link for a telephone's camera; empty when others cannot reach the server.
  std::string GetLinkForOthers() const;

 private:
  /// A request and what becomes of it.
  struct Exchanged;
  struct StopDaemon {
    void operator()(MHD_Daemon* daemon) const { MHD_stop_daemon(daemon); }
  };

  // Called by the library, all on the server's thread.
  static MHD_Result OnConnect(void* server, const sockaddr* address, socklen_t size);
  static void OnConnection(void* server, MHD_Connection* connection, void** client,
                           MHD_ConnectionNotificationCode code);
  static MHD_Result OnRequest(void* server, MHD_Connection* connection, const char* path,
                              const char* method, const char* version, const char* data,
                              std::size_t* size, void** exchanged);
  static void OnCompleted(void* server, MHD_Connection* connection, void** exchanged,
                          MHD_RequestTerminationCode code);

  void OpenDaemon(const Options& options);
  void Run();
  void Wait(bool hasBeat) const;
  void TakeNews();
  void TellFacts();
  void LookAtPicture();
  void Beat(WebTime now);
  void ResumeFinishedWork();
  void End();
  void CountListeners();

  MHD_Result Begin(MHD_Connection* connection, Exchanged& exchanged);
  MHD_Result Go(MHD_Connection* connection, Exchanged& exchanged);
  MHD_Result Send(MHD_Connection* connection, Exchanged& exchanged, const Reply& reply);
  MHD_Result SendStream(MHD_Connection* connection, Exchanged& exchanged, const Reply& reply);
  MHD_Result StartWork(MHD_Connection* connection, Exchanged& exchanged, const Reply& reply);
  MHD_Result Queue(MHD_Connection* connection, const Reply& reply, MHD_Response* response);
  std::string Describe(const EventStream& stream, EventStream::News news);
  std::size_t CountDrives();
  std::string MakeLink(const std::string& host, const std::string& key) const;

  Exchange& exchange;
  ListeningSocket socket;
  const bool isEncrypted;
  const std::optional<AccessKeys> keys;
  const RequestGuard guard;
  const Access access;
  const DriveBook drives;
  std::size_t driveCount = 0;
  WebTime drivesCounted;
  Connections connections;
  ServerCounts counts;
  ViewFrames frames;
  EventTexts texts;
  EventStreams streams;
  Router router;
  BackgroundWork work;
  WebFacts factsTold;
  std::uint64_t updateTold = 0;
  WebTime nextBeat;
  /// Connections that wait for work aside.
  std::vector<Exchanged*> atWork;
  std::atomic<bool> isStopping = false;
  std::string certificate;
  std::string certificateKey;
  std::unique_ptr<MHD_Daemon, StopDaemon> daemon;
  std::thread thread;
};

}  // namespace host
