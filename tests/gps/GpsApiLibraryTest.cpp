#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "base/ModuleFunction.h"
#include "gps/GpsApiLibrary.h"
#include "handheld.h"

namespace ferolin {
namespace {

class GpsApiLibraryTest : public testing::Test {
 protected:
  void TearDown() override { handheld::SetLibraryDirectory(""); }

  /// From now on the library found is the one in this folder.
  static void Provide(const char* kind) {
    handheld::SetLibraryDirectory(std::string(STAND_IN_FOLDER "/") + kind);
  }
};

/// The stand-in library, which counts its calls.
class StandIn {
 public:
  StandIn() : module(LoadLibraryW(TEXT("Dastrel.DLL"))) {
    FindEntry(module, TEXT("CountStarts"), countStarts);
    FindEntry(module, TEXT("CountStops"), countStops);
    FindEntry(module, TEXT("SetPosition"), setPosition);
  }
  ~StandIn() { FreeLibrary(module); }

  HMODULE module;
  int (*countStarts)() = nullptr;
  int (*countStops)() = nullptr;
  void (*setPosition)(const GPS_POSITION*) = nullptr;
};

TEST_F(GpsApiLibraryTest, CallsReachTheLibrary) {
  Provide("complete");
  const StandIn standIn;
  ASSERT_NE(nullptr, standIn.countStarts);
  const GpsApiLibrary library;
  library.Start();
  library.Start();
  library.Stop();
  EXPECT_EQ(2, standIn.countStarts());
  EXPECT_EQ(1, standIn.countStops());
}

TEST_F(GpsApiLibraryTest, PositionIsCopiedWhole) {
  Provide("complete");
  const StandIn standIn;
  ASSERT_NE(nullptr, standIn.setPosition);
  GPS_POSITION given;
  std::memset(&given, 0x5A, sizeof given);
  standIn.setPosition(&given);
  const GpsApiLibrary library;
  GPS_POSITION taken = {};
  ASSERT_TRUE(library.GetPosition(taken));
  EXPECT_EQ(0, std::memcmp(&taken, &given, 344));
}

TEST_F(GpsApiLibraryTest, MissingLibraryIsSilent) {
  const GpsApiLibrary library;
  library.Start();
  library.Stop();
  GPS_POSITION position;
  std::memset(&position, 0x5A, sizeof position);
  const GPS_POSITION before = position;
  EXPECT_FALSE(library.GetPosition(position));
  EXPECT_EQ(0, std::memcmp(&position, &before, sizeof position));
}

TEST_F(GpsApiLibraryTest, MissingEntriesAreSilent) {
  Provide("empty");
  const GpsApiLibrary library;
  library.Start();
  library.Stop();
  GPS_POSITION position = {};
  EXPECT_FALSE(library.GetPosition(position));
}

TEST_F(GpsApiLibraryTest, LibraryIsFreedAtTheEnd) {
  Provide("complete");
  { const GpsApiLibrary library; }
  // Loaded afresh, the stand-in has forgotten what it was asked before.
  {
    const StandIn standIn;
    const GpsApiLibrary library;
    library.Start();
    EXPECT_EQ(1, standIn.countStarts());
  }
  const StandIn again;
  EXPECT_EQ(0, again.countStarts());
}

}  // namespace
}  // namespace ferolin
