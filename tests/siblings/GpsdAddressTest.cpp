#include <gtest/gtest.h>

#include "common/GpsdAddress.h"

namespace siblings {
namespace {

struct Case {
  const char* text;
  const char* host;
  const char* port;
};

class GpsdAddressTest : public testing::TestWithParam<Case> {};

TEST_P(GpsdAddressTest, ReadsHostAndPort) {
  const GpsdAddress address = GpsdAddress::FromText(GetParam().text);
  EXPECT_EQ(GetParam().host, address.host);
  EXPECT_EQ(GetParam().port, address.port);
}

constexpr Case CASES[] = {
    {"", "localhost", "2947"},      {"car", "car", "2947"},
    {"car:4000", "car", "4000"},    {"192.168.1.5:4000", "192.168.1.5", "4000"},
    {":4000", "localhost", "4000"}, {"car:", "car", "2947"},
    {"::1", "::1", "2947"},         {"fe80::12", "fe80::12", "2947"},
    {"[::1]", "::1", "2947"},       {"[::1]:4000", "::1", "4000"},
    {"[::1", "[::1", "2947"},       {"[]", "localhost", "2947"},
};
INSTANTIATE_TEST_SUITE_P(Texts, GpsdAddressTest, testing::ValuesIn(CASES));

}  // namespace
}  // namespace siblings
