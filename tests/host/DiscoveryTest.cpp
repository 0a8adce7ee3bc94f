#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "mqtt/Discovery.h"

namespace host {
namespace {

using Json = nlohmann::json;

TEST(Discovery, DescribesPositionSpeedAndDistance) {
  const std::vector<MqttMessage> messages = MakeDiscovery("box");
  ASSERT_EQ(3u, messages.size());
  EXPECT_EQ("homeassistant/device_tracker/ferolin_box/position/config", messages[0].topic);
  EXPECT_EQ("homeassistant/sensor/ferolin_box/speed/config", messages[1].topic);
  EXPECT_EQ("homeassistant/sensor/ferolin_box/distance/config", messages[2].topic);
  std::vector<Json> entities;
  for (const MqttMessage& message : messages) {
    EXPECT_EQ(MqttMessage::Use::RETAINED, message.use);
    entities.push_back(Json::parse(message.payload));
    Json& device = entities.back()["device"];
    EXPECT_EQ(1u, device.erase("sw_version"));
    EXPECT_EQ(Json::parse(R"({"identifiers": ["ferolin_box"], "name": "Ferolin box",
                              "model": "GPS speedometer"})"),
              device);
    entities.back().erase("device");
  }
  EXPECT_EQ(
      "{% if value_json.fix %}{{ {'latitude': value_json.lat, 'longitude': value_json.lon, "
      "'altitude': value_json.alt_m, 'course': value_json.course_deg} | tojson }}"
      "{% else %}{}{% endif %}",
      entities[0]["json_attributes_template"]);
  entities[0].erase("json_attributes_template");
  EXPECT_EQ(Json::parse(R"({"unique_id": "ferolin_box_position",
      "object_id": "ferolin_box_position", "availability_topic": "ferolin/box/status",
      "name": "Position", "source_type": "gps", "json_attributes_topic": "ferolin/box/state"})"),
            entities[0]);
  EXPECT_EQ(Json::parse(R"({"unique_id": "ferolin_box_speed", "object_id": "ferolin_box_speed",
      "availability_topic": "ferolin/box/status", "name": "Speed",
      "state_topic": "ferolin/box/state", "value_template": "{{ value_json.speed_mps }}",
      "device_class": "speed", "state_class": "measurement", "unit_of_measurement": "m/s",
      "suggested_unit_of_measurement": "km/h", "suggested_display_precision": 0})"),
            entities[1]);
  EXPECT_EQ(Json::parse(R"({"unique_id": "ferolin_box_distance",
      "object_id": "ferolin_box_distance", "availability_topic": "ferolin/box/status",
      "name": "Trip distance",
      "state_topic": "ferolin/box/state", "value_template": "{{ value_json.distance_m }}",
      "device_class": "distance", "state_class": "total_increasing", "unit_of_measurement": "m",
      "suggested_unit_of_measurement": "km", "suggested_display_precision": 1})"),
            entities[2]);
}

}  // namespace
}  // namespace host
