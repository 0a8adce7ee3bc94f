#include <gtest/gtest.h>

#include <array>
#include <string>

#include "base/HostError.h"
#include "window/ViewNames.h"

namespace host {
namespace {

constexpr std::array<const char*, 3> NAMES = {"Speedometer", "Speed", "Satellites"};

int WINAPI CopyName(int index, char* buffer, int) {
  const std::string name = NAMES[static_cast<std::size_t>(index)];
  name.copy(buffer, name.size());
  return static_cast<int>(name.size());
}

EngineLibrary::Functions MakeFunctions() {
  EngineLibrary::Functions functions;
  functions.GetWidgetsCount = []() WINAPI { return static_cast<int>(NAMES.size()); };
  functions.GetWidgetName = CopyName;
  return functions;
}

const EngineLibrary::Functions ENGINE = MakeFunctions();

std::string NameError(const std::string& nameOrNumber) {
  try {
    FindView(ENGINE, nameOrNumber);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "(accepted)";
}

TEST(ViewNames, AreFoundInAnyCaseAndByNumber) {
  EXPECT_EQ(1, FindView(ENGINE, "speed"));
  EXPECT_EQ(2, FindView(ENGINE, "Satellites"));
  EXPECT_EQ(2, FindView(ENGINE, "2"));
}

TEST(ViewNames, ArePlainInEveryLanguage) {
  EXPECT_EQ(0, FindView(ENGINE, "dial"));
  EXPECT_EQ(1, FindView(ENGINE, "SPEED"));
  EXPECT_EQ("--view: there is no view \"path\"", NameError("path").substr(0, 31));
}

TEST(ViewNames, AreListedWhenThereIsNoSuchView) {
  for (const char* wrong : {"3", "-1", "Bogus", "1x"}) {
    EXPECT_EQ("--view: there is no view \"" + std::string(wrong) +
                  "\" (views: dial, speed, satellites, path, chart; Speedometer (0), Speed (1), "
                  "Satellites (2))",
              NameError(wrong));
  }
}

TEST(ViewNames, AreSuggested) {
  EXPECT_EQ("--view: there is no view \"sped\"; did you mean Speed?",
            NameError("sped").substr(0, 52));
}

TEST(ViewNames, AreParsedAsNumbers) {
  EXPECT_EQ(0, ParseViewNumber(ENGINE, "0"));
  for (const char* wrong : {"3", "-1", "1x", "", "Speed"}) {
    EXPECT_EQ(std::nullopt, ParseViewNumber(ENGINE, wrong)) << wrong;
  }
}

}  // namespace
}  // namespace host
