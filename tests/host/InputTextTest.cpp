#include <gtest/gtest.h>

#include "web/InputText.h"

namespace host {
namespace {

using Kind = RemoteInput::Kind;

RemoteInput Parsed(const std::string& text) {
  const std::optional<RemoteInput> input = ParseInput(text);
  EXPECT_TRUE(input) << text;
  return input.value_or(RemoteInput());
}

TEST(InputText, ReadsTouches) {
  struct Case {
    const char* type;
    Kind kind;
  };
  for (const Case& each : {Case{"down", Kind::DOWN}, Case{"move", Kind::MOVE}, Case{"up", Kind::UP},
                           Case{"double", Kind::DOUBLE_TAP}}) {
    const RemoteInput input =
        Parsed(std::string(R"({"type":")") + each.type + R"(","x":10,"y":20.9,"stream":7})");
    EXPECT_EQ(each.kind, input.kind);
    EXPECT_EQ(10, input.x);
    EXPECT_EQ(20, input.y);
    EXPECT_EQ(7u, input.stream);
  }
}

/// Messages to windows have 16 bits for each.
TEST(InputText, KeepsTouchesWithinSixteenBits) {
  const RemoteInput input = Parsed(R"({"type":"down","x":1e308,"y":-99999999999})");
  EXPECT_EQ(32767, input.x);
  EXPECT_EQ(-32768, input.y);
}

TEST(InputText, ReadsKeysAndSteps) {
  EXPECT_EQ(static_cast<WPARAM>(VK_LEFT), Parsed(R"({"type":"key","key":"left"})").key);
  EXPECT_EQ(static_cast<WPARAM>('H'), Parsed(R"({"type":"key","key":"h"})").key);
  EXPECT_EQ(0u, Parsed(R"({"type":"key","key":"h"})").stream);
  EXPECT_EQ(1, Parsed(R"({"type":"view","step":1})").step);
  EXPECT_EQ(-1, Parsed(R"({"type":"view","step":-1})").step);
}

TEST(InputText, KeepsSizesWithinWhatCanBeDrawn) {
  const RemoteInput phone = Parsed(R"({"type":"fit","width":412,"height":915,"dpi":192})");
  EXPECT_EQ(412, phone.width);
  EXPECT_EQ(915, phone.height);
  EXPECT_EQ(192, phone.dpi);
  const RemoteInput small = Parsed(R"({"type":"fit","width":0,"height":-5,"dpi":1})");
  EXPECT_EQ(176, small.width);
  EXPECT_EQ(144, small.height);
  EXPECT_EQ(48, small.dpi);
  const RemoteInput large = Parsed(R"({"type":"fit","width":1e9,"height":30000,"dpi":9999})");
  EXPECT_EQ(2560, large.width);
  EXPECT_EQ(2560, large.height);
  EXPECT_EQ(480, large.dpi);
}

TEST(InputText, RefusesEverythingElse) {
  for (const char* text :
       {"", "x", "[]", "7", "{}", R"({"type":1})", R"({"type":"wheel","x":1,"y":1})",
        R"({"type":"down","x":1})", R"({"type":"down","x":"1","y":2})",
        R"({"type":"down","x":null,"y":2})", R"({"type":"down","x":1,"y":2)", R"({"type":"key"})",
        R"({"type":"key","key":"f4"})", R"({"type":"key","key":65})", R"({"type":"view"})",
        R"({"type":"view","step":2})", R"({"type":"view","step":0})",
        R"({"type":"fit","width":100,"height":100})"}) {
    EXPECT_FALSE(ParseInput(text)) << text;
  }
}

}  // namespace
}  // namespace host
