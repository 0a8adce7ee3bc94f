#include <gtest/gtest.h>
#include <windows.h>

namespace {

DWORD WINAPI ReturnArgument(LPVOID) {
  return 0;
}

TEST(Modules, ThatAreMissingDoNotLoad) {
  EXPECT_EQ(nullptr, LoadLibraryW(TEXT("ferolin-api-none.dll")));
  EXPECT_EQ(ERROR_MOD_NOT_FOUND, GetLastError());
  EXPECT_FALSE(FreeLibrary(nullptr));
}

TEST(Modules, TellTheirPathInALargeEnoughBufferOnly) {
  WCHAR path[4];
  EXPECT_EQ(3U, GetModuleFileNameW(nullptr, path, 3));
  EXPECT_EQ(ERROR_INSUFFICIENT_BUFFER, GetLastError());
}

TEST(Threads, TellThatTheyHaveEnded) {
  const HANDLE thread = CreateThread(nullptr, 0, &ReturnArgument, nullptr, 0, nullptr);
  ASSERT_NE(nullptr, thread);
  DWORD code = STILL_ACTIVE;
  while (GetExitCodeThread(thread, &code) && code == STILL_ACTIVE) {
    Sleep(1);
  }
  EXPECT_EQ(0U, code);
  EXPECT_TRUE(CloseHandle(thread));
  EXPECT_FALSE(GetExitCodeThread(thread, &code));
}

TEST(Threads, NoneHasNoExitCode) {
  DWORD code = 5;
  EXPECT_FALSE(GetExitCodeThread(nullptr, &code));
  EXPECT_EQ(5U, code);
}

}  // namespace
