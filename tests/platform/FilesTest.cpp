#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

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
  static std::string ReadUpTo(HANDLE file, DWORD size) {
    std::string buffer(size, '?');
    DWORD count = size + 1;
    EXPECT_TRUE(ReadFile(file, buffer.data(), size, &count, nullptr));
    buffer.resize(count);
    return buffer;
  }
  static void Put(HANDLE file, const std::string& text) {
    DWORD count = 0;
    EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr));
    EXPECT_EQ(text.size(), count);
  }
  BOOL Move(const std::string& from, const std::string& to) {
    return MoveFileW(folder.DevicePath(from).c_str(), folder.DevicePath(to).c_str());
  }
  BOOL Delete(const std::string& name) { return DeleteFileW(folder.DevicePath(name).c_str()); }
  BOOL MakeFolder(const std::string& name) {
    return CreateDirectoryW(folder.DevicePath(name).c_str(), nullptr);
  }
  HANDLE Find(const std::string& pattern) {
    return FindFirstFileW(folder.DevicePath(pattern).c_str(), &found);
  }

  TempFolder folder;
  WIN32_FIND_DATAW found = {};
};

TEST_F(Files, ReadInPortionsUpToTheEnd) {
  folder.Write("a.txt", std::string("one\0two", 7));
  const HANDLE file = Open("a.txt");
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  EXPECT_EQ(std::string("one\0t", 5), ReadUpTo(file, 5));
  EXPECT_EQ("wo", ReadUpTo(file, 5));
  EXPECT_EQ("", ReadUpTo(file, 5));
  EXPECT_TRUE(CloseHandle(file));
}

TEST_F(Files, OpenWhateverTheCase) {
  folder.Write("Pics/Back.png", "x");
  const HANDLE file = Open("pics/BACK.PNG");
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  CloseHandle(file);
}

TEST_F(Files, AreCreatedAsSpelled) {
  const HANDLE file = Create("TachyMo.ini");
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  EXPECT_EQ(ERROR_SUCCESS, GetLastError());
  Put(file, "text");
  CloseHandle(file);
  EXPECT_EQ("text", folder.Read("TachyMo.ini"));
}

TEST_F(Files, CreatingEmptiesTheOneThatDiffersInCase) {
  folder.Write("Tachymo.ini", "old content");
  const HANDLE file = Create("TachyMo.ini");
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
  CloseHandle(file);
  EXPECT_EQ("", folder.Read("Tachymo.ini"));
  EXPECT_FALSE(folder.Has("TachyMo.ini"));
}

TEST_F(Files, TellWhatIsMissing) {
  EXPECT_EQ(INVALID_HANDLE_VALUE, Open("none.txt"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, Open("none/none.txt"));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("none/none.txt"));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_FALSE(folder.Has("none"));
}

TEST_F(Files, NamelessOnesAreNotFound) {
  EXPECT_EQ(INVALID_HANDLE_VALUE,
            CreateFileW(u"", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(INVALID_HANDLE_VALUE,
            CreateFileW(nullptr, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(Files, FoldersDoNotOpen) {
  MakeFolder("sub");
  EXPECT_EQ(INVALID_HANDLE_VALUE, Open("sub"));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("sub"));
}

TEST_F(Files, OtherDispositionsAreRefused) {
  constexpr DWORD CREATE_NEW = 1;
  EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(folder.DevicePath("x").c_str(), GENERIC_WRITE, 0,
                                              nullptr, CREATE_NEW, 0, nullptr));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

TEST_F(Files, DoOnlyWhatTheyWereOpenedFor) {
  folder.Write("a.txt", "abc");
  DWORD count = 9;
  char byte = 0;
  const HANDLE reader = Open("a.txt");
  EXPECT_FALSE(WriteFile(reader, "x", 1, &count, nullptr));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  EXPECT_EQ(0u, count);
  EXPECT_FALSE(FlushFileBuffers(reader));
  CloseHandle(reader);

  const HANDLE writer = Create("b.txt");
  EXPECT_FALSE(ReadFile(writer, &byte, 1, &count, nullptr));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  EXPECT_TRUE(FlushFileBuffers(writer));
  CloseHandle(writer);
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

TEST_F(Files, ShareOnlyWhatWasAllowed) {
  folder.Write("a.txt", "abc");
  const HANDLE alone = Open("a.txt", GENERIC_READ, 0);
  EXPECT_EQ(INVALID_HANDLE_VALUE, Open("a.txt"));
  EXPECT_EQ(ERROR_SHARING_VIOLATION, GetLastError());
  CloseHandle(alone);

  const HANDLE first = Open("a.txt");
  const HANDLE second = Open("A.TXT");
  EXPECT_NE(INVALID_HANDLE_VALUE, second);
  EXPECT_EQ(INVALID_HANDLE_VALUE, Create("a.txt"));
  EXPECT_EQ("abc", folder.Read("a.txt"));
  CloseHandle(first);
  CloseHandle(second);

  const HANDLE writer = Create("a.txt");
  EXPECT_NE(INVALID_HANDLE_VALUE, writer);
  CloseHandle(writer);
}

TEST_F(Files, DeletedAreGone) {
  folder.Write("A.txt", "");
  EXPECT_TRUE(Delete("a.TXT"));
  EXPECT_FALSE(folder.Has("A.txt"));
  EXPECT_FALSE(Delete("A.txt"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

TEST_F(Files, DoNotDeleteFoldersOrOpenFiles) {
  MakeFolder("sub");
  EXPECT_FALSE(Delete("sub"));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  const HANDLE file = Create("a.txt");
  EXPECT_FALSE(Delete("a.txt"));
  EXPECT_EQ(ERROR_SHARING_VIOLATION, GetLastError());
  CloseHandle(file);
  EXPECT_TRUE(Delete("a.txt"));
}

TEST_F(Files, MoveToAFreeName) {
  folder.Write("a.txt", "content");
  EXPECT_TRUE(Move("A.TXT", "b.txt"));
  EXPECT_FALSE(folder.Has("a.txt"));
  EXPECT_EQ("content", folder.Read("b.txt"));
}

TEST_F(Files, NeverMoveOverAnother) {
  folder.Write("a.txt", "a");
  folder.Write("B.txt", "b");
  EXPECT_FALSE(Move("a.txt", "b.TXT"));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
  EXPECT_EQ("a", folder.Read("a.txt"));
  EXPECT_EQ("b", folder.Read("B.txt"));
}

TEST_F(Files, MoveToAnotherSpellingOfTheirName) {
  folder.Write("a.txt", "a");
  EXPECT_TRUE(Move("a.txt", "A.txt"));
  EXPECT_TRUE(folder.Has("A.txt"));
  EXPECT_FALSE(folder.Has("a.txt"));
}

TEST_F(Files, MovingTellsWhatIsMissing) {
  folder.Write("a.txt", "a");
  EXPECT_FALSE(Move("none.txt", "b.txt"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
  EXPECT_FALSE(Move("a.txt", "none/b.txt"));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
}

TEST_F(Files, FoldersAreMadeLevelByLevel) {
  EXPECT_FALSE(MakeFolder("One/Two"));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_TRUE(MakeFolder("One"));
  EXPECT_TRUE(MakeFolder("one/Two"));
  EXPECT_TRUE(folder.Has("One/Two"));
  EXPECT_FALSE(MakeFolder("ONE"));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
}

TEST_F(Files, AFileInTheWayOfAFolderAlreadyExists) {
  folder.Write("Tracks", "");
  EXPECT_FALSE(MakeFolder("Tracks"));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
}

TEST_F(Files, AnEmptyFolderNameIsNoPath) {
  EXPECT_FALSE(CreateDirectoryW(u"", nullptr));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
}

TEST_F(Files, AreFoundByName) {
  folder.Write("Track0001.kml", "");
  const HANDLE search = Find("TRACK0001.KML");
  ASSERT_NE(INVALID_HANDLE_VALUE, search);
  EXPECT_EQ(u"Track0001.kml", std::u16string(found.cFileName));
  EXPECT_EQ(FILE_ATTRIBUTE_NORMAL, found.dwFileAttributes);
  EXPECT_TRUE(FindClose(search));
  EXPECT_FALSE(FindClose(search));
}

TEST_F(Files, AreDescribedWhenFound) {
  folder.Write("a.txt", "12345");
  std::filesystem::last_write_time(
      folder.Path("a.txt"),
      std::filesystem::file_time_type::clock::from_sys(
          std::chrono::sys_seconds(std::chrono::sys_days(std::chrono::year(2024) / 2 / 29))));
  FindClose(Find("a.txt"));
  EXPECT_EQ(5u, found.nFileSizeLow);
  EXPECT_EQ(0u, found.nFileSizeHigh);
  SYSTEMTIME written = {};
  EXPECT_TRUE(FileTimeToSystemTime(&found.ftLastWriteTime, &written));
  EXPECT_EQ(2024, written.wYear);
  EXPECT_EQ(2, written.wMonth);
  EXPECT_EQ(29, written.wDay);
}

TEST_F(Files, SearchesTellWhatIsMissing) {
  EXPECT_EQ(INVALID_HANDLE_VALUE, Find("none.kml"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
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
