#include <gtest/gtest.h>

#include "base/ModuleFunction.h"
#include "handheld.h"
#include "handheld/Dastrel.h"

namespace {

/// Comes first: the library under test keeps the service once it has found it.
TEST(AGpsServiceThatIsMissing, TellsNothing) {
  StartGPSAPI();
  EXPECT_EQ(GPS_FIX_UNKNOWN, GetGPSPos()->FixType);
  StopGPSAPI();
}

/// The stand-in for the system's service, which stays loaded as the library under test keeps it.
class GpsService : public testing::Test {
 protected:
  GpsService() {
    handheld::SetLibraryDirectory(STAND_IN_FOLDER);
    const HMODULE module = LoadLibraryW(TEXT("gpsapi.dll"));
    ferolin::FindEntry(module, TEXT("CountConnections"), countConnections);
    ferolin::FindEntry(module, TEXT("GetAskedAge"), getAskedAge);
    ferolin::FindEntry(module, TEXT("SetResult"), setResult);
  }
  ~GpsService() override {
    StopGPSAPI();
    setResult(ERROR_SUCCESS);
    handheld::SetLibraryDirectory("");
  }

  int (*countConnections)() = nullptr;
  DWORD (*getAskedAge)() = nullptr;
  void (*setResult)(DWORD) = nullptr;
};

TEST_F(GpsService, IsUsedBetweenStartAndStop) {
  EXPECT_EQ(GPS_FIX_UNKNOWN, GetGPSPos()->FixType);
  StartGPSAPI();
  EXPECT_EQ(1, countConnections());
  const GPS_POSITION* position = GetGPSPos();
  EXPECT_EQ(GPS_FIX_3D, position->FixType);
  EXPECT_EQ(55.75, position->dblLatitude);
  EXPECT_EQ(5000u, getAskedAge());
  StopGPSAPI();
  EXPECT_EQ(0, countConnections());
  EXPECT_EQ(position, GetGPSPos());
  EXPECT_EQ(GPS_FIX_UNKNOWN, position->FixType);
  EXPECT_EQ(GPS_VERSION_1, position->dwVersion);
  EXPECT_EQ(sizeof(GPS_POSITION), position->dwSize);
}

TEST_F(GpsService, IsConnectedOnce) {
  StartGPSAPI();
  StartGPSAPI();
  EXPECT_EQ(1, countConnections());
  StopGPSAPI();
  StopGPSAPI();
  EXPECT_EQ(0, countConnections());
  StartGPSAPI();
  EXPECT_EQ(1, countConnections());
}

TEST_F(GpsService, ThatFailsTellsNothing) {
  StartGPSAPI();
  setResult(ERROR_GEN_FAILURE);
  EXPECT_EQ(GPS_FIX_UNKNOWN, GetGPSPos()->FixType);
  EXPECT_EQ(0u, GetGPSPos()->dwValidFields);
}

}  // namespace
