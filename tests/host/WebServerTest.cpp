#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <string>

#include "TestFolder.h"
#include "base/FileDescriptor.h"
#include "web/WebServer.h"

namespace host {
namespace {

class WebServerTest : public testing::Test {
 protected:
  std::unique_ptr<WebServer> Make(const std::string& address) {
    Options options;
    options.web = Options::Web{.address = address, .port = 0};
    return std::make_unique<WebServer>(options, folder.GetPath(), exchange);
  }

  TestFolder folder;
  Exchange exchange{[] {}};
};

/// A program that reads a stream of events.
class EventReader {
 public:
  explicit EventReader(const std::string& link) : socket(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port =
        htons(static_cast<std::uint16_t>(std::stoi(link.substr(link.rfind(':') + 1))));
    EXPECT_EQ(0,
              connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address));
    const std::string request = "GET /events HTTP/1.1\r\nHost: localhost\r\n\r\n";
    EXPECT_EQ(static_cast<ssize_t>(request.size()),
              send(socket.Get(), request.data(), request.size(), 0));
  }

  /// What stands before the next `part`; everything at the end of the stream.
  std::string ReadUntil(const std::string& part) {
    std::size_t found = text.find(part);
    while (found == std::string::npos) {
      std::array<char, 4096> buffer;
      const ssize_t size = recv(socket.Get(), buffer.data(), buffer.size(), 0);
      if (size <= 0) {
        return text;
      }
      text.append(buffer.data(), static_cast<std::size_t>(size));
      found = text.find(part);
    }
    std::string before = text.substr(0, found);
    text.erase(0, found + part.size());
    return before;
  }

 private:
  const FileDescriptor socket;
  /// Behind what was awaited.
  std::string text;
};

TEST_F(WebServerTest, SaysHelloAgainWhenFactsChange) {
  const auto server = Make("127.0.0.1");
  server->Start();
  EventReader reader(server->DescribeLinks().front());
  const auto hasLimits = [](const std::string& events, const std::string& limits) {
    return events.find(R"("limits":)" + limits) != std::string::npos;
  };
  EXPECT_TRUE(hasLimits(reader.ReadUntil("event: update"), "[]"));
  WebFacts facts;
  facts.isRussian = true;
  facts.limits = {{50, true}};
  exchange.PutFacts(facts);
  Update update;
  update.number = 7;
  exchange.PutUpdate(update, {});
  EXPECT_TRUE(hasLimits(reader.ReadUntil(R"("update":7,)"), R"([{"speed_kmh":50,"on":true}])"));
}

TEST_F(WebServerTest, HasNoKeysOnALoopbackAddress) {
  for (const char* address : {"127.0.0.1", "127.1.2.3"}) {
    const auto server = Make(address);
    ASSERT_EQ(1u, server->DescribeLinks().size()) << address;
    EXPECT_EQ(std::string::npos, server->DescribeLinks().front().find("?key="));
    EXPECT_EQ("", server->GetLinkForOthers());
  }
}

TEST_F(WebServerTest, GivesTelephonesTheLinkToTouch) {
  const auto server = Make("0.0.0.0");
  const AccessKeys keys(folder.GetPath());
  const std::vector<std::string> links = server->DescribeLinks();
  ASSERT_EQ(2u, links.size());
  EXPECT_TRUE(links[0].starts_with("to look: http://")) << links[0];
  EXPECT_TRUE(links[0].ends_with("/?key=" + keys.GetLookKey())) << links[0];
  EXPECT_EQ("to look and touch: " + server->GetLinkForOthers(), links[1]);
  EXPECT_TRUE(links[1].ends_with("/?key=" + keys.GetControlKey())) << links[1];
}

}  // namespace
}  // namespace host
