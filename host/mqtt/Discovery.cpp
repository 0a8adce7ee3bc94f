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

MqttMessage MakeSpeed(const std::string& id) {
  Json entity = Describe(id, "speed");
  entity["name"] = "Speed";
  entity["state_topic"] = Topics(id).state;
  entity["value_template"] = "{{ value_json.speed_mps }}";
  entity["device_class"] = "speed";
  entity["state_class"] = "measurement";
  entity["unit_of_measurement"] = "m/s";
  entity["suggested_unit_of_measurement"] = "km/h";
  entity["suggested_display_precision"] = 0;
  return MakeMessage("sensor", id, "speed", entity);
}

/// Starts from zero with every new trip.
MqttMessage MakeDistance(const std::string& id) {
  Json entity = Describe(id, "distance");
  entity["name"] = "Trip distance";
  entity["state_topic"] = Topics(id).state;
  entity["value_template"] = "{{ value_json.distance_m }}";
  entity["device_class"] = "distance";
  entity["state_class"] = "total_increasing";
  entity["unit_of_measurement"] = "m";
  entity["suggested_unit_of_measurement"] = "km";
  entity["suggested_display_precision"] = 1;
  return MakeMessage("sensor", id, "distance", entity);
}

}  // namespace

std::vector<MqttMessage> MakeDiscovery(const std::string& id) {
  return {MakeTracker(id), MakeSpeed(id), MakeDistance(id)};
}

}  // namespace host
