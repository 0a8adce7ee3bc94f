#include <gtest/gtest.h>

#include "mqtt/Discovery.h"

namespace host {
namespace {

TEST(Discovery, DescribesPositionSpeedAndDistance) {
  const std::vector<MqttMessage> messages = MakeDiscovery("box");
  ASSERT_EQ(3u, messages.size());
  EXPECT_EQ("homeassistant/device_tracker/ferolin_box/position/config", messages[0].topic);
  EXPECT_EQ("homeassistant/sensor/ferolin_box/speed/config", messages[1].topic);
  EXPECT_EQ("homeassistant/sensor/ferolin_box/distance/config", messages[2].topic);
  for (const MqttMessage& message : messages) {
    EXPECT_EQ(MqttMessage::Use::RETAINED, message.use);
    EXPECT_NE(std::string::npos, message.payload.find("\"ferolin/box/status\""));
    EXPECT_NE(std::string::npos, message.payload.find("\"ferolin/box/state\""));
  }
}

}  // namespace
}  // namespace host
