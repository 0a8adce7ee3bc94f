#include "mqtt/Broker.h"

namespace host {

std::string DescribeAddress(const Broker& broker) {
  const bool isIpv6 = broker.host.find(':') != std::string::npos;
  return (isIpv6 ? "[" + broker.host + "]" : broker.host) + ":" + std::to_string(broker.port);
}

}  // namespace host
