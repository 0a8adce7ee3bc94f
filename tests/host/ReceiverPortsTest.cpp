#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "TestFolder.h"
#include "sources/ReceiverPorts.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class ReceiverPortsTest : public testing::Test {
 protected:
  void Make(const std::string& name) const { std::ofstream(folder.GetPath() + "/" + name); }

  void Link(const std::string& target, const std::string& name) const {
    const fs::path path = fs::path(folder.GetPath()) / name;
    fs::create_directories(path.parent_path());
    fs::create_symlink(fs::path(folder.GetPath()) / target, path);
  }

  std::vector<std::string> Find() const {
    std::vector<std::string> names;
    for (const std::string& path : FindReceiverPorts(folder.GetPath())) {
      EXPECT_TRUE(path.starts_with(folder.GetPath() + "/")) << path;
      names.push_back(path.substr(folder.GetPath().size() + 1));
    }
    return names;
  }

  TestFolder folder;
};

TEST_F(ReceiverPortsTest, AreUsbThenBoardThenBluetooth) {
  for (const char* name :
       {"rfcomm0", "ttyAMA0", "ttyUSB1", "ttyUSB0", "ttyACM0", "ttyS0", "tty1", "null"}) {
    Make(name);
  }
  EXPECT_EQ((std::vector<std::string>{"ttyACM0", "ttyUSB0", "ttyUSB1", "ttyAMA0", "rfcomm0"}),
            Find());
}

TEST_F(ReceiverPortsTest, HaveTheirStableNameWhereThereIsOne) {
  Make("ttyUSB0");
  Make("ttyUSB1");
  Link("ttyUSB1", "serial/by-id/usb-receiver");
  Link("ttyUSB7", "serial/by-id/usb-gone");
  EXPECT_EQ((std::vector<std::string>{"serial/by-id/usb-receiver", "ttyUSB0"}), Find());
}

TEST_F(ReceiverPortsTest, MayBeNone) {
  EXPECT_EQ(std::vector<std::string>(), Find());
  EXPECT_EQ(std::vector<std::string>(), FindReceiverPorts(folder.GetPath() + "/none"));
}

}  // namespace
}  // namespace host
