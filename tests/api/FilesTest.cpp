#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "support/TempFolder.h"

namespace {

/// In a folder of its own. Names are relative to it.
class Files : public testing::Test {
 protected:
  std::basic_string<WCHAR> Path(const std::string& name) const { return folder.DevicePath(name); }

  HANDLE Open(const std::string& name, DWORD access, DWORD share, DWORD disposition) const {
    return CreateFileW(Path(name).c_str(), access, share, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
  }

  /// The error of an attempt to open that must fail; 0 if it did not.
  DWORD ErrorOfOpening(const std::string& name, DWORD access, DWORD share,
                       DWORD disposition) const {
    const HANDLE file = Open(name, access, share, disposition);
    if (file == INVALID_HANDLE_VALUE) {
      return GetLastError();
    }
    CloseHandle(file);
    return 0;
  }

  void Make(const std::string& name, const std::string& content) const {
    const HANDLE file = Open(name, GENERIC_WRITE, 0, CREATE_ALWAYS);
    DWORD written = 0;
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
  }

  std::string Read(const std::string& name) const {
    const HANDLE file = Open(name, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    char buffer[100];
    DWORD count = 0;
    ReadFile(file, buffer, sizeof buffer, &count, nullptr);
    CloseHandle(file);
    return {buffer, count};
  }

  const testing_support::TempFolder folder;
};

TEST_F(Files, MissingFilesAndFoldersAreToldApart) {
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, ErrorOfOpening("no", GENERIC_READ, 0, OPEN_EXISTING));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, ErrorOfOpening("no\\no", GENERIC_READ, 0, OPEN_EXISTING));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, ErrorOfOpening("no\\no", GENERIC_WRITE, 0, CREATE_ALWAYS));
}

TEST_F(Files, AFolderCannotBeOpenedAsAFile) {
  ASSERT_TRUE(CreateDirectoryW(Path("folder").c_str(), nullptr));
  EXPECT_EQ(ERROR_ACCESS_DENIED,
            ErrorOfOpening("folder", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING));
  EXPECT_FALSE(DeleteFileW(Path("folder").c_str()));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
}

TEST_F(Files, AFolderIsMadeOnceAndOnlyInAnother) {
  EXPECT_TRUE(CreateDirectoryW(Path("folder").c_str(), nullptr));
  EXPECT_FALSE(CreateDirectoryW(Path("FOLDER").c_str(), nullptr));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
  EXPECT_FALSE(CreateDirectoryW(Path("no\\folder").c_str(), nullptr));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_TRUE(CreateDirectoryW(Path("other\\").c_str(), nullptr));
  Make("file", "");
  EXPECT_FALSE(CreateDirectoryW(Path("file").c_str(), nullptr));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
}

TEST_F(Files, NamesAreFoundInAnyLetterCaseAndSpelling) {
  Make("File", "content");
  ASSERT_TRUE(CreateDirectoryW(Path("folder").c_str(), nullptr));
  EXPECT_EQ("content", Read("fILE"));
  EXPECT_EQ("content", Read("\\file"));
  EXPECT_EQ("content", Read(".\\FOLDER\\..\\file"));
}

TEST_F(Files, CreatingEmptiesAFileInAnyLetterCaseAndTellsThatThereWasOne) {
  HANDLE file = Open("File", GENERIC_WRITE, 0, CREATE_ALWAYS);
  EXPECT_EQ(ERROR_SUCCESS, GetLastError());
  CloseHandle(file);
  Make("File", "content");
  file = Open("fILE", GENERIC_WRITE, 0, CREATE_ALWAYS);
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
  CloseHandle(file);
  EXPECT_EQ("", Read("File"));
}

TEST_F(Files, DeletedOnesAreGone) {
  Make("File", "");
  EXPECT_TRUE(DeleteFileW(Path("file").c_str()));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, ErrorOfOpening("File", GENERIC_READ, 0, OPEN_EXISTING));
  EXPECT_FALSE(DeleteFileW(Path("File").c_str()));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
}

TEST_F(Files, TheEndOfAFileIsNoErrorButNoBytes) {
  Make("file", std::string("con\0tent", 8));
  const HANDLE file = Open("file", GENERIC_READ, 0, OPEN_EXISTING);
  char buffer[5];
  DWORD count = 0;
  EXPECT_TRUE(ReadFile(file, buffer, sizeof buffer, &count, nullptr));
  EXPECT_EQ(std::string("con\0t", 5), std::string(buffer, count));
  EXPECT_TRUE(ReadFile(file, buffer, sizeof buffer, &count, nullptr));
  EXPECT_EQ("ent", std::string(buffer, count));
  EXPECT_TRUE(ReadFile(file, buffer, sizeof buffer, &count, nullptr));
  EXPECT_EQ(0U, count);
  CloseHandle(file);
}

TEST_F(Files, AccessThatWasNotAskedForIsDenied) {
  Make("file", "content");
  char buffer[8] = {};
  DWORD count = 77;
  HANDLE file = Open("file", GENERIC_READ, 0, OPEN_EXISTING);
  EXPECT_FALSE(WriteFile(file, buffer, sizeof buffer, &count, nullptr));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  EXPECT_EQ(0U, count);
  EXPECT_FALSE(FlushFileBuffers(file));
  CloseHandle(file);
  file = Open("file", GENERIC_WRITE, 0, OPEN_EXISTING);
  count = 77;
  EXPECT_FALSE(ReadFile(file, buffer, sizeof buffer, &count, nullptr));
  EXPECT_EQ(ERROR_ACCESS_DENIED, GetLastError());
  EXPECT_EQ(0U, count);
  EXPECT_TRUE(FlushFileBuffers(file));
  CloseHandle(file);
}

TEST_F(Files, AnOpenFileIsSharedAsBothSidesAllow) {
  const HANDLE writer = Open("file", GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS);
  EXPECT_EQ(ERROR_SHARING_VIOLATION, ErrorOfOpening("file", GENERIC_READ, 0, OPEN_EXISTING));
  EXPECT_FALSE(DeleteFileW(Path("file").c_str()));
  EXPECT_EQ(ERROR_SHARING_VIOLATION, GetLastError());
  EXPECT_FALSE(MoveFileW(Path("file").c_str(), Path("moved").c_str()));
  EXPECT_EQ(ERROR_SHARING_VIOLATION, GetLastError());
  CloseHandle(writer);

  const HANDLE reader = Open("file", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
  EXPECT_EQ(0U, ErrorOfOpening("FILE", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING));
  EXPECT_EQ(ERROR_SHARING_VIOLATION, ErrorOfOpening("file", GENERIC_READ, 0, OPEN_EXISTING));
  EXPECT_EQ(ERROR_SHARING_VIOLATION,
            ErrorOfOpening("file", GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING));
  EXPECT_EQ(ERROR_SHARING_VIOLATION, ErrorOfOpening("file", GENERIC_WRITE, 0, CREATE_ALWAYS));
  CloseHandle(reader);
}

TEST_F(Files, MovingReplacesNothing) {
  Make("one", "1");
  Make("two", "2");
  EXPECT_FALSE(MoveFileW(Path("one").c_str(), Path("TWO").c_str()));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, GetLastError());
  EXPECT_FALSE(MoveFileW(Path("no").c_str(), Path("three").c_str()));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
  EXPECT_FALSE(MoveFileW(Path("one").c_str(), Path("no\\one").c_str()));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_TRUE(MoveFileW(Path("one").c_str(), Path("three").c_str()));
  EXPECT_EQ("1", Read("three"));
  EXPECT_EQ("2", Read("two"));
}

TEST_F(Files, AFileMayBeMovedOntoItself) {
  Make("file", "content");
  EXPECT_TRUE(MoveFileW(Path("file").c_str(), Path("file").c_str()));
  EXPECT_TRUE(MoveFileW(Path("file").c_str(), Path("File").c_str()));
  EXPECT_EQ("content", Read("file"));
}

TEST_F(Files, WhatIsFoundHasItsOwnLetterCase) {
  Make("File", "content");
  ASSERT_TRUE(CreateDirectoryW(Path("Folder").c_str(), nullptr));
  WIN32_FIND_DATAW found;
  const auto find = [&](const std::string& name) {
    const HANDLE search = FindFirstFileW(Path(name).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
      return std::string();
    }
    FindClose(search);
    std::string text;
    for (const WCHAR* letter = found.cFileName; *letter != 0; ++letter) {
      text += static_cast<char>(*letter);
    }
    return text;
  };
  EXPECT_EQ("File", find("FILE"));
  EXPECT_EQ(0U, found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
  EXPECT_EQ(7U, found.nFileSizeLow);
  EXPECT_EQ("Folder", find("folder"));
  EXPECT_NE(0U, found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
  EXPECT_EQ("File", find("fi*"));
  EXPECT_EQ("", find("no"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, GetLastError());
  EXPECT_EQ("", find("no\\no"));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, GetLastError());
  EXPECT_EQ("", find("folder\\"));
}

TEST_F(Files, WhatIsNoHandleIsRefused) {
  char buffer[1];
  DWORD count = 0;
  DCB settings = {};
  EXPECT_FALSE(ReadFile(INVALID_HANDLE_VALUE, buffer, 1, &count, nullptr));
  EXPECT_FALSE(WriteFile(INVALID_HANDLE_VALUE, buffer, 1, &count, nullptr));
  EXPECT_FALSE(FlushFileBuffers(INVALID_HANDLE_VALUE));
  EXPECT_FALSE(GetCommState(INVALID_HANDLE_VALUE, &settings));
  EXPECT_FALSE(CloseHandle(nullptr));
  EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
}

TEST_F(Files, AFileIsNoSerialPort) {
  Make("file", "");
  const HANDLE file = Open("file", GENERIC_READ, 0, OPEN_EXISTING);
  DCB settings = {};
  EXPECT_FALSE(GetCommState(file, &settings));
  CloseHandle(file);
}

}  // namespace
