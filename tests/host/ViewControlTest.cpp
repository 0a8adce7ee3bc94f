#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "display/Display.h"
#include "window/ViewControl.h"

namespace host {
namespace {

constexpr int VIEWS = 3;
constexpr int SENSORS = 4;

/// Records the calls of the engine and holds its answers.
struct FakeEngine {
  int view = -1;
  int mirror = 0;
  int flip = 0;
  int rotate = 0;
  int invert = 0;
  int hasSms = 1;
  std::vector<int> resets;
  std::vector<std::string> calls;
};

FakeEngine fake;

void Note(const char* what, int x, int y) {
  fake.calls.push_back(std::string(what) + " " + std::to_string(x) + " " + std::to_string(y));
}

int WINAPI GetName(int index, char* buffer, int) {
  const std::string name = std::string("View") + static_cast<char>('A' + index);
  name.copy(buffer, name.size());
  return static_cast<int>(name.size());
}

EngineLibrary::Functions MakeFunctions() {
  EngineLibrary::Functions functions;
  functions.GetWidgetsCount = []() WINAPI { return VIEWS; };
  functions.GetWidgetName = GetName;
  functions.GetCurRenderWidget = []() WINAPI { return fake.view; };
  functions.SetCurRenderWidget = [](int index) WINAPI { fake.view = index; };
  functions.GetInvertHorz = []() WINAPI { return fake.mirror; };
  functions.SetInvertHorz = [](int flag) WINAPI { fake.mirror = flag; };
  functions.GetInvertVert = []() WINAPI { return fake.flip; };
  functions.SetInvertVert = [](int flag) WINAPI { fake.flip = flag; };
  functions.GetInvertOrient = []() WINAPI { return fake.rotate; };
  functions.SetInvertOrient = [](int flag) WINAPI { fake.rotate = flag; };
  functions.GetInvertColor = []() WINAPI { return fake.invert; };
  functions.SetInvertColor = [](int flag) WINAPI { fake.invert = flag; };
  functions.GetSensorsCount = []() WINAPI { return SENSORS; };
  functions.ResetSensorValue = [](int index) WINAPI {
    fake.resets.push_back(index);
    return 1;
  };
  functions.IsSMSExist = []() WINAPI { return fake.hasSms; };
  functions.SendSMS = []() WINAPI { fake.calls.emplace_back("sms"); };
  functions.OnDoubleClick = []() WINAPI { fake.calls.emplace_back("double"); };
  functions.OnMouseDown = [](HWND, int x, int y) WINAPI { Note("down", x, y); };
  functions.OnMouseMove = [](HWND, int x, int y) WINAPI { Note("move", x, y); };
  functions.OnMouseUp = [](HWND, int x, int y) WINAPI { Note("up", x, y); };
  return functions;
}

class ViewControlTest : public testing::Test {
 protected:
  ViewControlTest() { fake = FakeEngine(); }

  ViewControl Make(const Options::Picture& picture = {}) {
    return {functions,
            nullptr,
            picture,
            {[this] { ++closed; }, [this] { ++fullscreen; },
             [this](const std::string& text) { said.push_back(text); }}};
  }

  static void Send(ViewControl& control, UINT message, int x, int y) {
    MSG sent = {};
    sent.message = message;
    sent.lParam =
        static_cast<LPARAM>(static_cast<DWORD>(y & 0xFFFF) << 16 | static_cast<DWORD>(x & 0xFFFF));
    control.OnMessage(sent);
  }

  static void Press(ViewControl& control, WPARAM key) {
    MSG sent = {};
    sent.message = WM_KEYDOWN;
    sent.wParam = key;
    control.OnMessage(sent);
  }

  const EngineLibrary::Functions functions = MakeFunctions();
  int closed = 0;
  int fullscreen = 0;
  std::vector<std::string> said;
};

TEST_F(ViewControlTest, BeginsWithTheChoices) {
  Options::Picture picture;
  picture.view = "2";
  picture.mirror = true;
  picture.rotate = true;
  const ViewControl control = Make(picture);
  EXPECT_EQ(2, fake.view);
  EXPECT_EQ(1, fake.mirror);
  EXPECT_EQ(0, fake.flip);
  EXPECT_EQ(1, fake.rotate);
  EXPECT_EQ(0, fake.invert);
  EXPECT_EQ("ViewC", control.GetCurrentViewName());
}

TEST_F(ViewControlTest, BeginsWithTheFirstViewWhenTheOneUsedLastIsGone) {
  Options::Picture picture;
  picture.view = "3";
  Make(picture);
  EXPECT_EQ(0, fake.view);
}

TEST_F(ViewControlTest, ArrowsWrapAround) {
  ViewControl control = Make();
  control.OnButton(FEROLIN_BUTTON_PREVIOUS_VIEW);
  EXPECT_EQ(2, fake.view);
  control.OnButton(FEROLIN_BUTTON_NEXT_VIEW);
  EXPECT_EQ(0, fake.view);
  control.OnButton(FEROLIN_BUTTON_NEXT_VIEW);
  EXPECT_EQ(1, fake.view);
}

TEST_F(ViewControlTest, ResetsEverySensor) {
  Make().OnButton(FEROLIN_BUTTON_RESET_ALL);
  EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), fake.resets);
}

TEST_F(ViewControlTest, SendsAReportOrSaysWhyNot) {
  ViewControl control = Make();
  control.OnButton(FEROLIN_BUTTON_SEND_SMS);
  EXPECT_EQ(std::vector<std::string>{"sms"}, fake.calls);
  EXPECT_TRUE(said.empty());
  fake.hasSms = 0;
  control.OnButton(FEROLIN_BUTTON_SEND_SMS);
  EXPECT_EQ(1u, fake.calls.size());
  EXPECT_EQ(1u, said.size());
}

TEST_F(ViewControlTest, OptionsInvertColoursAndListTheKeys) {
  ViewControl control = Make();
  control.OnButton(FEROLIN_BUTTON_OPTIONS);
  EXPECT_EQ(1, fake.invert);
  ASSERT_EQ(1u, said.size());
  EXPECT_NE(said[0].find("H: mirror"), std::string::npos);
  control.OnButton(FEROLIN_BUTTON_OPTIONS);
  EXPECT_EQ(0, fake.invert);
}

TEST_F(ViewControlTest, ClosesMirrorsAndRotates) {
  ViewControl control = Make();
  control.OnButton(FEROLIN_BUTTON_CLOSE);
  EXPECT_EQ(1, closed);
  control.OnButton(FEROLIN_BUTTON_FLIP_HORIZONTALLY);
  EXPECT_EQ(1, fake.mirror);
  control.OnButton(FEROLIN_BUTTON_ROTATE_SCREEN);
  EXPECT_EQ(1, fake.rotate);
  control.OnButton(FEROLIN_BUTTON_FLIP_HORIZONTALLY);
  control.OnButton(FEROLIN_BUTTON_ROTATE_SCREEN);
  EXPECT_EQ(0, fake.mirror);
  EXPECT_EQ(0, fake.rotate);
}

TEST_F(ViewControlTest, LeavesUnknownCodesAlone) {
  ViewControl control = Make();
  control.OnButton(FEROLIN_BUTTON_NONE);
  control.OnButton(FEROLIN_BUTTON_ZOOM_IN);
  EXPECT_EQ(0, fake.view);
  EXPECT_EQ(0, closed);
  EXPECT_TRUE(fake.calls.empty() && fake.resets.empty() && said.empty());
}

TEST_F(ViewControlTest, KeysDoAsTheHelpSays) {
  ViewControl control = Make();
  Press(control, handheld::KEY_RIGHT);
  EXPECT_EQ(1, fake.view);
  Press(control, handheld::KEY_LEFT);
  EXPECT_EQ(0, fake.view);
  for (const WPARAM key : {'H', 'V', 'R', 'I'}) {
    Press(control, key);
  }
  EXPECT_EQ(4, fake.mirror + fake.flip + fake.rotate + fake.invert);
  Press(control, handheld::KEY_HOME);
  Press(control, handheld::KEY_DELETE);
  EXPECT_EQ(2u * SENSORS, fake.resets.size());
  Press(control, 'F');
  EXPECT_EQ(1, fullscreen);
  Press(control, 'Q');
  Press(control, handheld::KEY_ESCAPE);
  EXPECT_EQ(2, closed);
  fake.calls.clear();
  Press(control, 'S');
  EXPECT_EQ(std::vector<std::string>{"sms"}, fake.calls);
}

TEST_F(ViewControlTest, ChangesThatKeepTheFramesShapeAreSeenAtOnce) {
  ViewControl control = Make();
  Press(control, 'B');
  EXPECT_EQ((std::vector<std::string>{"double", "down -10000 -10000", "up -10000 -10000"}),
            fake.calls);
}

TEST_F(ViewControlTest, HandsTouchesOn) {
  ViewControl control = Make();
  Send(control, WM_LBUTTONDOWN, 10, 20);
  Send(control, WM_MOUSEMOVE, -3, 300);
  Send(control, WM_LBUTTONUP, -5, 301);
  EXPECT_EQ((std::vector<std::string>{"down 10 20", "move -3 300", "up -5 301"}), fake.calls);
}

TEST_F(ViewControlTest, ADoubleClickTogglesTheBars) {
  ViewControl control = Make();
  Send(control, WM_LBUTTONDOWN, 10, 20);
  Send(control, WM_LBUTTONUP, 10, 20);
  Send(control, WM_LBUTTONDBLCLK, 10, 20);
  Send(control, WM_LBUTTONUP, 10, 20);
  EXPECT_EQ(
      (std::vector<std::string>{"down 10 20", "up 10 20", "double", "down 10 20", "up 10 20"}),
      fake.calls);
}

TEST_F(ViewControlTest, AButtonTappedTwiceIsNoDoubleClick) {
  ViewControl control = Make();
  Send(control, WM_LBUTTONDOWN, 10, 20);
  Send(control, WM_LBUTTONUP, 10, 20);
  control.OnButton(FEROLIN_BUTTON_NEXT_VIEW);
  fake.calls.clear();
  Send(control, WM_LBUTTONDBLCLK, 10, 20);
  EXPECT_EQ(std::vector<std::string>{"down 10 20"}, fake.calls);
}

TEST_F(ViewControlTest, ClosingTheWindowEndsTheRun) {
  ViewControl control = Make();
  Send(control, WM_CLOSE, 0, 0);
  EXPECT_EQ(1, closed);
}

TEST_F(ViewControlTest, TellsThePictureAsItIsNow) {
  ViewControl control = Make();
  control.OnButton(FEROLIN_BUTTON_NEXT_VIEW);
  control.OnButton(FEROLIN_BUTTON_ROTATE_SCREEN);
  const Options::Picture picture = control.GetPicture();
  EXPECT_EQ("1", picture.view);
  EXPECT_EQ(true, picture.rotate);
  EXPECT_EQ(false, picture.mirror);
  EXPECT_EQ(false, picture.flip);
  EXPECT_EQ(false, picture.invert);
}

}  // namespace
}  // namespace host
