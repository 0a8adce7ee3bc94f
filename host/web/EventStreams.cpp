#include "web/EventStreams.h"

#include <algorithm>
#include <utility>

namespace host {

std::shared_ptr<EventStream> EventStreams::Add(EventStream::Listener listener, bool isLocal,
                                               bool hasPicture) {
  const bool hasTooMany = !isLocal && CountOf(listener.client) >= MOST_OF_CLIENT;
  if (streams.size() >= MOST_STREAMS || hasTooMany) {
    return nullptr;
  }
  streams.push_back(
      std::make_shared<EventStream>(++lastNumber, std::move(listener), hasPicture, describe));
  return streams.back();
}

void EventStreams::Remove(const std::shared_ptr<EventStream>& stream) {
  std::erase(streams, stream);
}

void EventStreams::Tell(EventStream::News news) {
  for (const auto& stream : streams) {
    stream->Tell(news);
  }
}

void EventStreams::Tell(std::uint64_t number, EventStream::News news) {
  for (const auto& stream : streams) {
    if (stream->GetNumber() == number) {
      stream->Tell(news);
    }
  }
}

void EventStreams::Beat(WebTime now) {
  for (const auto& stream : streams) {
    stream->Beat(now - BEAT_INTERVAL);
  }
}

void EventStreams::End() {
  for (const auto& stream : streams) {
    stream->End();
  }
}

std::size_t EventStreams::CountViewers() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      streams, [](const auto& stream) { return stream->GetListener().wantsViews; }));
}

std::size_t EventStreams::CountOf(const std::string& client) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      streams, [&client](const auto& stream) { return stream->GetListener().client == client; }));
}

}  // namespace host
