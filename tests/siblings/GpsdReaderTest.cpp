#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <string>

#include "dastrel/GpsdReader.h"

namespace dastrel {
namespace {

using namespace std::chrono_literals;

/// A listening port on which the test plays gpsd.
class Server {
 public:
  Server() : listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address);
    listen(listener, 5);
  }
  ~Server() {
    HangUp();
    close(listener);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  std::string Address() const {
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    return "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
  }

  /// Waits for a client; false when none comes.
  bool Accept() {
    pollfd wanted = {listener, POLLIN, 0};
    if (poll(&wanted, 1, 10000) <= 0) {
      return false;
    }
    client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    return client >= 0;
  }

  /// The next line that the client sends.
  std::string Heard() {
    std::string line;
    char c;
    while (recv(client, &c, 1, 0) == 1 && c != '\n') {
      line += c;
    }
    return line;
  }

  void Say(const std::string& text) { send(client, text.data(), text.size(), MSG_NOSIGNAL); }

  void HangUp() {
    if (client >= 0) {
      close(client);
      client = -1;
    }
  }

 private:
  int listener;
  int client = -1;
};

/// Waits until the position has this latitude; 0 means "no fix". False when it does not come.
bool Arrives(const GpsdReader& reader, double latitude, std::chrono::seconds patience = 10s) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (std::chrono::steady_clock::now() < end) {
    const GPS_POSITION record = reader.GetPosition();
    if (record.dblLatitude == latitude && (record.FixType != GPS_FIX_UNKNOWN) == (latitude != 0)) {
      return true;
    }
    usleep(5000);
  }
  return false;
}

TEST(GpsdReaderTest, AsksToBeKeptInformed) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  EXPECT_EQ(R"(?WATCH={"enable":true,"json":true};)", server.Heard());
}

TEST(GpsdReaderTest, ReportsMayComeInPiecesAndInHeaps) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  server.Say(R"({"class":"TPV","mode":3,"la)");
  usleep(20000);
  server.Say("t\":1.5}\r\n");
  EXPECT_TRUE(Arrives(reader, 1.5));
  server.Say(R"({"class":"TPV","mode":3,"lat":2.5})"
             "\r\n"
             R"({"class":"TPV","mode":3,"lat":3.5})"
             "\r\n"
             R"({"class":"TPV","mode":3,"lat":4.5)");
  EXPECT_TRUE(Arrives(reader, 3.5));
}

TEST(GpsdReaderTest, ConnectsAgainWhenTheConnectionIsLost) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  server.Say("{\"class\":\"TPV\",\"mode\":3,\"lat\":1.5}\r\n");
  ASSERT_TRUE(Arrives(reader, 1.5));
  server.HangUp();
  // Well before the five seconds for which a silent receiver is believed.
  EXPECT_TRUE(Arrives(reader, 0, 3s));
  ASSERT_TRUE(server.Accept());
  server.Say("{\"class\":\"TPV\",\"mode\":3,\"lat\":2.5}\r\n");
  EXPECT_TRUE(Arrives(reader, 2.5));
}

TEST(GpsdReaderTest, EndlessLineIsNotTakenForGpsd) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  const std::string block(64 * 1024, 'x');
  for (int i = 0; i < 8; i++) {
    server.Say(block);
  }
  server.HangUp();
  EXPECT_TRUE(server.Accept()) << "it must have hung up and called again";
}

TEST(GpsdReaderTest, LinesOnWhichLibgpsHangsDoNoHarm) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  server.Say(R"({"class":"DEVICES","devices":[{"class":"DEVICE")"
             "\r\n"
             R"({"clas":"DEVICES","devices":[{"class":"DEVICE","path":"/dev/x"}]})"
             "\r\n"
             R"({"class":"TPV","mode":3,"lat":1.5})"
             "\r\n");
  EXPECT_TRUE(Arrives(reader, 1.5));
}

TEST(GpsdReaderTest, HangsUpOnAServiceThatIsNotGpsd) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  server.Say("{\"class\":\"TPV\",\"mode\":3,\"lat\":1.5}\r\n");
  ASSERT_TRUE(Arrives(reader, 1.5));
  for (int i = 0; i < 20; i++) {
    server.Say("220 mail.example ESMTP\r\n");
  }
  // Well before the five seconds for which a silent receiver is believed.
  EXPECT_TRUE(Arrives(reader, 0, 3s));
  EXPECT_TRUE(server.Accept()) << "it must have hung up and called again";
}

TEST(GpsdReaderTest, APollGetsTheNewestOfManyPositions) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  std::string reports;
  for (int latitude = 1; latitude <= 80; latitude++) {
    reports += "{\"class\":\"TPV\",\"mode\":3,\"lat\":" + std::to_string(latitude) + "}\r\n";
  }
  server.Say(reports);
  EXPECT_TRUE(Arrives(reader, 80));
}

TEST(GpsdReaderTest, StopsWhileTheOtherSideIsSilent) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  reader.Stop();
  // End of the stream: the connection is closed.
  server.Heard();
  EXPECT_EQ("", server.Heard());
}

TEST(GpsdReaderTest, StartingTwiceFollowsOnce) {
  Server first;
  Server second;
  GpsdReader reader;
  reader.Start(first.Address().c_str());
  reader.Start(second.Address().c_str());
  ASSERT_TRUE(first.Accept());
  first.Say("{\"class\":\"TPV\",\"mode\":3,\"lat\":1.5}\r\n");
  EXPECT_TRUE(Arrives(reader, 1.5));
}

TEST(GpsdReaderTest, StartsAgainAfterStopping) {
  Server server;
  GpsdReader reader;
  reader.Start(server.Address().c_str());
  ASSERT_TRUE(server.Accept());
  reader.Stop();
  server.HangUp();
  reader.Start(server.Address().c_str());
  EXPECT_TRUE(server.Accept());
}

TEST(GpsdReaderTest, StoppingWithoutStartingIsHarmless) {
  GpsdReader reader;
  reader.Stop();
  reader.Stop();
  EXPECT_EQ(GPS_FIX_UNKNOWN, reader.GetPosition().FixType);
  EXPECT_EQ(344u, reader.GetPosition().dwSize);
}

TEST(GpsdReaderTest, NonsenseAddressLeavesThePositionUnknown) {
  GpsdReader reader;
  reader.Start("256.1.1.1:not-a-port");
  EXPECT_EQ(GPS_FIX_UNKNOWN, reader.GetPosition().FixType);
}

}  // namespace
}  // namespace dastrel
