// One browser that listens.
#pragma once

#include <microhttpd.h>

#include <cstdint>
#include <functional>
#include <string>

#include "web/Role.h"
#include "web/Snapshot.h"

namespace host {

/// Remembers only that something is new, never what: a browser that takes nothing for a while gets
/// the newest state afterwards. For the server's thread.
class EventStream {
 public:
  enum class News { HELLO, LEFT, VIEW, UPDATE };

  struct Listener {
    std::string client;
    Role role = Role::LOOK;
    bool wantsViews = false;
  };

  /// Gives the text of an event.
  using Describe = std::function<std::string(const EventStream& stream, News news)>;

  /// The first events are a hello, the picture when `hasPicture`, and an update.
  EventStream(std::uint64_t number, Listener listener, bool hasPicture, Describe describe);
  EventStream(const EventStream&) = delete;
  EventStream& operator=(const EventStream&) = delete;

  std::uint64_t GetNumber() const { return number; }
  const Listener& GetListener() const { return listener; }

  void Tell(News news);
  /// Ends the stream behind what was sent.
  void End();
  /// Sends an update when nothing was sent since `time`.
  void Beat(WebTime time);

  /// Puts text into `buffer` for the library; suspends the connection when there is none.
  ssize_t Read(MHD_Connection* connection, char* buffer, std::size_t size);

 private:
  /// False when there is nothing to say.
  bool Compose();
  void Resume();

  const std::uint64_t number;
  const Listener listener;
  const Describe describe;
  /// Bits by News.
  unsigned waiting = 0;
  bool isEnding = false;
  std::string text;
  std::size_t sent = 0;
  WebTime lastSent;
  /// Not null while the connection is suspended.
  MHD_Connection* suspended = nullptr;
};

}  // namespace host
