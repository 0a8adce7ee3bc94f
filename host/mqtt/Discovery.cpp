#include "mqtt/Discovery.h"

#include <nlohmann/json.hpp>

#include "mqtt/Topics.h"

namespace host {

namespace {

using Json = nlohmann::ordered_json;

/// What all three have in common.
Json Describe(const std::string& id, const std::string& key) {
  const std::string box = "ferolin_" + id;
  return {{"unique_id", box + "_" + key},
          {"object_id", box + "_" + key},
          {"availability_topic", Topics(id).status},
          {"device",
           {{"identifiers", {box}},
            {"name", "Ferolin " + id},
            {"model", "GPS speedometer"},
            {"sw_version", FEROLIN_VERSION}}}};
}

MqttMessage MakeMessage(const std::string& kind, const std::string& id, const std::string& key,
                        const Json& entity) {
  return {"homeassistant/" + kind + "/ferolin_" + id + "/" + key + "/config", entity.dump()};
}

/// Without a fix there are no coordinates, and the place becomes unknown.
MqttMessage MakeTracker(const std::string& id) {
  Json entity = Describe(id, "position");
  entity["name"] = "Position";
  entity["source_type"] = "gps";
  entity["json_attributes_topic"] = Topics(id).state;
  entity["json_attributes_template"] =
      "{% if value_json.fix %}"
      "{{ {'latitude': value_json.lat, 'longitude': value_json.lon, "
      "'altitude': value_json.alt_m, 'course': value_json.course_deg} | tojson }}"
      "{% else %}{}{% endif %}";
  return MakeMessage("device_tracker", id, "position", entity);
}

/// What Home Assistant is told about a figure of the state.
struct Figure {
  const char* key;
  const char* name;
  /// In the state.
  const char* member;
  const char* deviceClass;
  const char* stateClass;
  const char* unit;
  const char* shownUnit;
  int shownDecimals;
};

constexpr Figure SPEED = {.key = "speed",
                          .name = "Speed",
                          .member = "speed_mps",
                          .deviceClass = "speed",
                          .stateClass = "measurement",
                          .unit = "m/s",
                          .shownUnit = "km/h",
                          .shownDecimals = 0};

/// Starts from zero with every new trip.
constexpr Figure DISTANCE = {.key = "distance",
                             .name = "Trip distance",
                             .member = "distance_m",
                             .deviceClass = "distance",
                             .stateClass = "total_increasing",
                             .unit = "m",
                             .shownUnit = "km",
                             .shownDecimals = 1};

MqttMessage MakeSensor(const std::string& id, const Figure& figure) {
  Json entity = Describe(id, figure.key);
  entity["name"] = figure.name;
  entity["state_topic"] = Topics(id).state;
  entity["value_template"] = std::string("{{ value_json.") + figure.member + " }}";
  entity["device_class"] = figure.deviceClass;
  entity["state_class"] = figure.stateClass;
  entity["unit_of_measurement"] = figure.unit;
  entity["suggested_unit_of_measurement"] = figure.shownUnit;
  entity["suggested_display_precision"] = figure.shownDecimals;
  return MakeMessage("sensor", id, figure.key, entity);
}

}  // namespace

std::vector<MqttMessage> MakeDiscovery(const std::string& id) {
  return {MakeTracker(id), MakeSensor(id, SPEED), MakeSensor(id, DISTANCE)};
}

}  // namespace host
