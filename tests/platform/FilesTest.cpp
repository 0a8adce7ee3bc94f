#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

/// Facts about files that tests/api does not test on both homes.
class Files : public testing::Test {
 protected:
  HANDLE Open(const std::string& name, DWORD access = GENERIC_READ,
              DWORD shareMode = FILE_SHARE_READ) {
    return CreateFileW(folder.DevicePath(name).c_str(), access, shareMode, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
  }
  HANDLE Create(const std::string& name, DWORD shareMode = FILE_SHARE_READ) {
    return CreateFileW(folder.DevicePath(name).c_str(), GENERIC_WRITE, shareMode, nullptr,
                       CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  }
  BOOL Move(const std::string& from, const std::string& to) {
    return MoveFileW(folder.DevicePath(from).c_str(), folder.DevicePath(to).c_str());
  }
  BOOL MakeFolder(const std::string& name) {
    return CreateDirectoryW(folder.DevicePath(name).c_str(), nullptr);
  }
  HANDLE Find(const std::string& pattern) {
    return FindFirstFileW(folder.DevicePath(pattern).c_str(), &found);
  }

  TempFolder folder;
  WIN32_FIND_DATAW found = {};
};

TEST_F(Files, NamelessOnesAreNotFound) {
  EXPECT_EQ(INVALID_HANDLE_VALUE,
            CreateFileW(u"", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(INVALID_HANDLE_VALUE,
            CreateFileW(nullptr, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(Files, OtherDispositionsAreRefused) {
  constexpr DWORD CREATE_NEW = 1;
  EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(folder.DevicePath("x").c_str(), GENERIC_WRITE, 0,
                                              nullptr, CREATE_NEW, 0, nullptr));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

TEST_F(Files, DoNothingOnceClosed) {
  const HANDLE file = Create("a.txt");
  CloseHandle(file);
  DWORD count;
  EXPECT_FALSE(WriteFile(file, "x", 1, &count, nullptr));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
  EXPECT_FALSE(FlushFileBuffers(file));
  EXPECT_EQ("", folder.Read("a.txt"));
}

TEST_F(Files, KeepTheirContentWhenTheyCannotBeEmptied) {
  folder.Write("a.txt", "abc");
  const HANDLE reader = Open("a.txt");
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("a.txt"));
  EXPECT_EQ("abc", folder.Read("a.txt"));
  CloseHandle(reader);
}

TEST_F(Files, APipeIsNoFileAndDoesNotHoldUpTheCaller) {
  ASSERT_EQ(0, mkfifo(folder.Path("pipe").c_str(), 0666));
  EXPECT_EQ(INVALID_HANDLE_VALUE, Open("pipe"));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("pipe"));
}

TEST_F(Files, CreatingDoesNotWriteThroughALink) {
  folder.Write("target", "precious");
  std::filesystem::create_symlink(folder.Path("target"), folder.Path("settings.new"));
  std::filesystem::create_symlink(folder.Path("nowhere"), folder.Path("dangling.new"));
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("settings.new"));
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("dangling.new"));
  EXPECT_EQ("precious", folder.Read("target"));
  EXPECT_FALSE(folder.Has("nowhere"));
}

/// Runs as an ordinary user, whom modes bind.
TEST_F(Files, CreatingDoesNotEmptyAFileThatCannotBeRead) {
  folder.Write("unread", "precious");
  std::filesystem::permissions(folder.Path("unread"), std::filesystem::perms(0222));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0777));
  constexpr uid_t NOBODY = 65534;
  EXPECT_EXIT(
      {
        if (geteuid() == 0 && setuid(NOBODY) != 0) {
          std::_Exit(2);
        }
        std::_Exit(Create("unread") == INVALID_HANDLE_VALUE ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
  std::filesystem::permissions(folder.Path("unread"), std::filesystem::perms(0666));
  EXPECT_EQ("precious", folder.Read("unread"));
}

TEST_F(Files, MoveToAnotherSpellingOfTheirName) {
  folder.Write("a.txt", "a");
  EXPECT_TRUE(Move("a.txt", "A.txt"));
  EXPECT_TRUE(folder.Has("A.txt"));
  EXPECT_FALSE(folder.Has("a.txt"));
}

TEST_F(Files, AnEmptyFolderNameIsNoPath) {
  EXPECT_FALSE(CreateDirectoryW(u"", nullptr));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
}

TEST_F(Files, AreDescribedWhenFound) {
  folder.Write("a.txt", "12345");
  std::filesystem::last_write_time(
      folder.Path("a.txt"),
      std::filesystem::file_time_type::clock::from_sys(
          std::chrono::sys_seconds(std::chrono::sys_days(std::chrono::year(2024) / 2 / 29))));
  const HANDLE search = Find("a.txt");
  EXPECT_EQ(FILE_ATTRIBUTE_NORMAL, found.dwFileAttributes);
  EXPECT_EQ(5u, found.nFileSizeLow);
  EXPECT_EQ(0u, found.nFileSizeHigh);
  SYSTEMTIME written = {};
  EXPECT_TRUE(FileTimeToSystemTime(&found.ftLastWriteTime, &written));
  EXPECT_EQ(2024, written.wYear);
  EXPECT_EQ(2, written.wMonth);
  EXPECT_EQ(29, written.wDay);
  EXPECT_TRUE(FindClose(search));
  EXPECT_FALSE(FindClose(search));
}

TEST_F(Files, SearchesByWildcardsTellWhatIsMissing) {
  EXPECT_EQ(INVALID_HANDLE_VALUE, Find("*.kml"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, Find("none/*.kml"));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, FindFirstFileW(nullptr, &found));
}

TEST_F(Files, AreFoundByWildcards) {
  folder.Write("Track0001.kml", "");
  folder.Write("other", "");
  const HANDLE search = Find("track????.KM*");
  ASSERT_NE(INVALID_HANDLE_VALUE, search);
  EXPECT_EQ(u"Track0001.kml", std::u16string(found.cFileName));
  FindClose(search);
}

TEST_F(Files, AStarDotStarMeansNamesWithoutDotsToo) {
  MakeFolder("sub");
  const HANDLE search = Find("*.*");
  ASSERT_NE(INVALID_HANDLE_VALUE, search);
  EXPECT_EQ(u"sub", std::u16string(found.cFileName));
  EXPECT_EQ(FILE_ATTRIBUTE_DIRECTORY, found.dwFileAttributes);
  FindClose(search);
}

TEST_F(Files, CountAsHandlesWhileOpen) {
  folder.Write("a.txt", "");
  const int before = handheld::HandlesAlive();
  const HANDLE file = Open("a.txt");
  const HANDLE search = Find("a.txt");
  EXPECT_EQ(before + 2, handheld::HandlesAlive());
  CloseHandle(file);
  FindClose(search);
  EXPECT_EQ(before, handheld::HandlesAlive());
}

}  // namespace
