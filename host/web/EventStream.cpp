#include "web/EventStream.h"

#include <algorithm>
#include <array>
#include <utility>

namespace host {

namespace {

unsigned BitOf(EventStream::News news) {
  return 1U << static_cast<unsigned>(news);
}

}  // namespace

EventStream::EventStream(std::uint64_t number, Listener listener, bool hasPicture,
                         Describe describe)
    : number(number),
      listener(std::move(listener)),
      describe(std::move(describe)),
      lastSent(std::chrono::steady_clock::now()) {
  waiting = BitOf(News::HELLO) | BitOf(News::UPDATE);
  if (this->listener.wantsViews && hasPicture) {
    waiting |= BitOf(News::VIEW);
  }
}

void EventStream::Tell(News news) {
  if (news == News::VIEW && !listener.wantsViews) {
    return;
  }
  waiting |= BitOf(news);
  Resume();
}

void EventStream::End() {
  isEnding = true;
  Resume();
}

void EventStream::Beat(WebTime time) {
  if (lastSent < time) {
    Tell(News::UPDATE);
  }
}

void EventStream::Resume() {
  if (MHD_Connection* const connection = std::exchange(suspended, nullptr)) {
    MHD_resume_connection(connection);
  }
}

ssize_t EventStream::Read(MHD_Connection* connection, char* buffer, std::size_t size) {
  if (sent == text.size() && !Compose()) {
    if (isEnding) {
      return MHD_CONTENT_READER_END_OF_STREAM;
    }
    suspended = connection;
    MHD_suspend_connection(connection);
    return 0;
  }
  const std::size_t count = std::min(size, text.size() - sent);
  std::copy_n(text.data() + sent, count, buffer);
  sent += count;
  lastSent = std::chrono::steady_clock::now();
  return static_cast<ssize_t>(count);
}

bool EventStream::Compose() {
  constexpr std::array IN_ORDER = {News::HELLO, News::LEFT, News::VIEW, News::UPDATE};
  const auto* next = std::find_if(IN_ORDER.begin(), IN_ORDER.end(),
                                  [this](News news) { return (waiting & BitOf(news)) != 0; });
  if (next == IN_ORDER.end()) {
    return false;
  }
  waiting &= ~BitOf(*next);
  text = describe(*this, *next);
  sent = 0;
  return true;
}

}  // namespace host
