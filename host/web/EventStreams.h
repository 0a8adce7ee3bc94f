// All browsers that listen.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "web/EventStream.h"

namespace host {

/// For the server's thread.
class EventStreams {
 public:
  static constexpr std::size_t MOST_STREAMS = 32;
  /// For each client but those on this machine.
  static constexpr std::size_t MOST_OF_CLIENT = 8;

  /// Longest time without an event, so that a browser soon finds that the server is gone, and the
  /// server that a browser is.
  static constexpr std::chrono::seconds BEAT_INTERVAL{2};

  explicit EventStreams(EventStream::Describe describe) : describe(std::move(describe)) {}

  /// Null when there are too many. `isLocal` is a client on this machine.
  std::shared_ptr<EventStream> Add(EventStream::Listener listener, bool isLocal, bool hasPicture);
  void Remove(const std::shared_ptr<EventStream>& stream);

  void Tell(EventStream::News news);
  /// To one of them, if it is still there.
  void Tell(std::uint64_t number, EventStream::News news);
  /// Sends an update to those that have had nothing for long.
  void Beat(WebTime now);
  void End();

  std::size_t Count() const { return streams.size(); }
  std::size_t CountViewers() const;

 private:
  std::size_t CountOf(const std::string& client) const;

  const EventStream::Describe describe;
  std::vector<std::shared_ptr<EventStream>> streams;
  std::uint64_t lastNumber = 0;
};

}  // namespace host
