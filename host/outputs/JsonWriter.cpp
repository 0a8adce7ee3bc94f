#include "outputs/JsonWriter.h"

#include <nlohmann/json.hpp>

namespace host {

namespace {

using Json = nlohmann::ordered_json;

Json ObjectOf(const Readouts& readouts) {
  Json object = Json::object();
  for (const Readout& each : readouts) {
    object[each.name] = each.value;
  }
  return object;
}

std::string LineOf(const Json& json) {
  constexpr int ONE_LINE = -1;
  constexpr bool AS_UTF8 = false;
  return json.dump(ONE_LINE, ' ', AS_UTF8, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string JsonUpdate(const Update& update) {
  Json line = {{"update", update.number}};
  if (!update.notice.empty()) {
    line["notice"] = update.notice;
  }
  line["sensors"] = ObjectOf(update.readouts);
  return LineOf(line);
}

std::string JsonEnd(std::uint64_t updates, const Readouts& registry) {
  return LineOf({{"end", true}, {"updates", updates}, {"registry", ObjectOf(registry)}});
}

}  // namespace host
