#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "handheld.h"
#include "windows/WindowTable.h"

namespace {

std::vector<MSG> heard;

LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  heard.push_back({window, message, wParam, lParam, 0, {}});
  return DefWindowProcW(window, message, wParam, lParam);
}

WNDCLASSW ClassNamed(const char16_t* name, WNDPROC procedure = Hear) {
  WNDCLASSW windowClass = {};
  windowClass.lpszClassName = name;
  windowClass.lpfnWndProc = procedure;
  return windowClass;
}

/// Facts about windows that tests/api does not test on both homes.
class Windows : public testing::Test {
 protected:
  Windows() {
    const WNDCLASSW windowClass = ClassNamed(u"Test");
    RegisterClassW(&windowClass);
    heard.clear();
  }
  ~Windows() override { handheld::SetScreen(240, 320, 96); }

  static HWND Create(DWORD style = WS_POPUP, HWND parent = nullptr) {
    return CreateWindowExW(0, u"Test", u"Speed", style, 10, 20, 100, 200, parent, nullptr, nullptr,
                           nullptr);
  }
};

TEST_F(Windows, ClassesNeedANameAndAProcedure) {
  const WNDCLASSW nameless = ClassNamed(nullptr);
  EXPECT_EQ(0, RegisterClassW(&nameless));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  const WNDCLASSW idle = ClassNamed(u"Idle", nullptr);
  EXPECT_EQ(0, RegisterClassW(&idle));
  EXPECT_EQ(0, RegisterClassW(nullptr));
  EXPECT_EQ(nullptr,
            CreateWindowExW(0, nullptr, u"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(Windows, AreMadeFromAnAtomToo) {
  const WNDCLASSW windowClass = ClassNamed(u"ByAtom");
  const ULONG_PTR atom = RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, reinterpret_cast<LPCWSTR>(atom), u"", 0, 0, 0, 1, 1,
                                      nullptr, nullptr, nullptr, nullptr);
  EXPECT_TRUE(IsWindow(window));
  DestroyWindow(window);
}

TEST_F(Windows, MayBeEmpty) {
  const HWND window =
      CreateWindowExW(0, u"Test", u"", 0, 5, 5, 0, 0, nullptr, nullptr, nullptr, nullptr);
  RECT rect = {1, 1, 1, 1};
  EXPECT_TRUE(GetClientRect(window, &rect));
  EXPECT_EQ(0, rect.right);
  EXPECT_EQ(0, rect.bottom);
  DestroyWindow(window);
}

TEST_F(Windows, FillTheScreenWhenLeftToTheSystem) {
  handheld::SetScreen(480, 640, 192);
  const HWND window =
      CreateWindowExW(0, u"Test", u"", 0, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                      CW_USEDEFAULT, nullptr, nullptr, nullptr, nullptr);
  RECT rect = {};
  EXPECT_TRUE(GetWindowRect(window, &rect));
  EXPECT_EQ(0, rect.left);
  EXPECT_EQ(480, rect.right);
  EXPECT_EQ(640, rect.bottom);
  DestroyWindow(window);
}

TEST_F(Windows, PutNoTitleIntoNoBuffer) {
  const HWND window = Create();
  char16_t room[10] = u"before";
  EXPECT_EQ(0, GetWindowTextW(window, room, 0));
  EXPECT_EQ(u"before", std::u16string(room));
  DestroyWindow(window);
}

TEST_F(Windows, LearnTheirSizeWhenFirstShown) {
  const HWND window = Create(WS_VISIBLE);
  EXPECT_TRUE(IsWindowVisible(window));
  ShowWindow(window, SW_HIDE);
  ShowWindow(window, SW_SHOW);
  ASSERT_EQ(1u, heard.size());
  EXPECT_EQ(WM_SIZE, heard[0].message);
  EXPECT_EQ(100, LOWORD(static_cast<ULONG_PTR>(heard[0].lParam)));
  EXPECT_EQ(200, HIWORD(static_cast<ULONG_PTR>(heard[0].lParam)));
  DestroyWindow(window);
}

TEST_F(Windows, HearOfTheirEnd) {
  const HWND window = Create();
  EXPECT_TRUE(DestroyWindow(window));
  ASSERT_EQ(1u, heard.size());
  EXPECT_EQ(WM_DESTROY, heard[0].message);
  EXPECT_EQ(window, heard[0].hwnd);
}

TEST_F(Windows, HearOfTheirEndBeforeTheirChildrenDo) {
  const HWND parent = Create();
  const HWND child = Create(0, parent);
  const HWND other = Create();
  DestroyWindow(parent);
  EXPECT_TRUE(IsWindow(other));
  ASSERT_EQ(2u, heard.size());
  EXPECT_EQ(parent, heard[0].hwnd);
  EXPECT_EQ(child, heard[1].hwnd);
  DestroyWindow(other);
}

TEST_F(Windows, NeedALivingParent) {
  const HWND parent = Create();
  DestroyWindow(parent);
  EXPECT_EQ(nullptr, Create(0, parent));
  EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
}

TEST_F(Windows, AreDestroyedByTheirOwnThreadOnly) {
  const HWND window = Create();
  std::thread([window] {
    EXPECT_FALSE(DestroyWindow(window));
    EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  }).join();
  EXPECT_TRUE(IsWindow(window));
  DestroyWindow(window);
}

TEST_F(Windows, EndWithTheirThread) {
  HWND window = nullptr;
  std::thread([&window] {
    window = Create();
    EXPECT_TRUE(IsWindow(window));
  }).join();
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(Windows, CloseByDestroying) {
  const HWND window = Create();
  EXPECT_EQ(0, DefWindowProcW(window, WM_CLOSE, 0, 0));
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(Windows, NeedAPlaceForTheirRectangles) {
  const HWND window = Create();
  EXPECT_FALSE(GetClientRect(window, nullptr));
  EXPECT_FALSE(GetWindowRect(window, nullptr));
  DestroyWindow(window);
}

TEST_F(Windows, FillTheScreenThatIsMeasured) {
  handheld::SetScreen(480, 640, 192);
  EXPECT_EQ(480, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_EQ(640, GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(Windows, OfTheSameClassAreFoundTheLatestFirst) {
  const HWND first = Create();
  const HWND second = Create();
  EXPECT_EQ(second, FindWindowW(u"Test", nullptr));
  DestroyWindow(second);
  EXPECT_EQ(first, FindWindowW(u"Test", nullptr));
  EXPECT_EQ(first, FindWindowW(nullptr, u"Speed"));
  EXPECT_TRUE(SetForegroundWindow(first));
  DestroyWindow(first);
}

TEST_F(Windows, HaveTheMouseOnlyInTheirOwnThread) {
  const HWND window = Create();
  std::thread([window] {
    EXPECT_EQ(nullptr, SetCapture(window));
    EXPECT_EQ(nullptr, SetCapture(window));
  }).join();
  DestroyWindow(window);
}

TEST_F(Windows, ThatAreGoneAreNotUpdated) {
  const HWND window = Create();
  DestroyWindow(window);
  EXPECT_FALSE(UpdateWindow(window));
  EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
}

TEST_F(Windows, StandInTheTable) {
  const HWND window = Create(WS_VISIBLE);
  auto& table = handheld::WindowTable::Instance();
  EXPECT_TRUE(table.SetRect(window, {0, 0, 30, 40}));
  RECT rect = {};
  GetClientRect(window, &rect);
  EXPECT_EQ(30, rect.right);
  const auto entry = table.Find(window);
  ASSERT_TRUE(entry);
  EXPECT_TRUE(entry->isVisible);
  EXPECT_EQ(1u, table.GetAll().size());
  DestroyWindow(window);
  EXPECT_FALSE(table.Find(window));
  EXPECT_FALSE(table.SetRect(window, {}));
  EXPECT_FALSE(table.SetVisible(window, true));
}

}  // namespace
