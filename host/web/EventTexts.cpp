#include "web/EventTexts.h"

#include <nlohmann/json.hpp>

#include "web/ReadoutText.h"

namespace host {

namespace {

using Json = nlohmann::ordered_json;

/// Age of a fix and state of the receiver change without an update.
constexpr std::chrono::milliseconds LONGEST_USE{500};

std::string Event(const char* name, const std::string& data) {
  return std::string("event: ") + name + "\ndata: " + data + "\n\n";
}

std::string LineOf(const Json& json) {
  constexpr int ONE_LINE = -1;
  constexpr bool AS_UTF8 = false;
  return json.dump(ONE_LINE, ' ', AS_UTF8, Json::error_handler_t::replace);
}

}  // namespace

std::string EventTexts::DescribeHello(std::uint64_t stream, Role role, std::size_t drives) const {
  const WebFacts facts = exchange.GetFacts();
  Json limits = Json::array();
  for (const WebFacts::Limit& limit : facts.limits) {
    limits.push_back({{"speed_kmh", limit.kmh}, {"on", limit.isOn}});
  }
  return Event("hello", LineOf({{"language", facts.isRussian ? "ru" : "en"},
                                {"limits", limits},
                                {"may_control", role == Role::CONTROL},
                                {"may_fit", role == Role::CONTROL && facts.mayFit},
                                {"version", FEROLIN_VERSION},
                                {"views", facts.window != nullptr},
                                {"drives", drives},
                                {"stream", stream}}));
}

std::string EventTexts::DescribeView() const {
  const WebFacts facts = exchange.GetFacts();
  return Event("view", LineOf({{"frame", frames.GetNumber()},
                               {"view", facts.viewName},
                               {"width", frames.GetWidth()},
                               {"height", frames.GetHeight()},
                               {"dpi", facts.dpi}}));
}

std::string EventTexts::DescribeLeft() {
  return Event("view", R"({"left":true})");
}

const std::string& EventTexts::DescribeUpdate() {
  const WebTime now = std::chrono::steady_clock::now();
  std::shared_ptr<const Snapshot> snapshot = exchange.GetSnapshot();
  if (snapshot != described || now - describedAt > LONGEST_USE) {
    update = Event("update", DescribeReadouts(*snapshot, now));
    described = std::move(snapshot);
    describedAt = now;
  }
  return update;
}

}  // namespace host
