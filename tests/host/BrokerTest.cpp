#include <gtest/gtest.h>

#include "mqtt/Broker.h"

namespace host {
namespace {

TEST(Broker, HasAnAddressWithAPort) {
  Broker broker;
  broker.host = "box.local";
  EXPECT_EQ("box.local:1883", DescribeAddress(broker));
  broker.host = "::1";
  broker.port = 8883;
  EXPECT_EQ("[::1]:8883", DescribeAddress(broker));
}

}  // namespace
}  // namespace host
