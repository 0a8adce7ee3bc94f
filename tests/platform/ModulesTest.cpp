#include <dlfcn.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "handheld.h"
#include "modules/Modules.h"
#include "modules/Probe.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

std::vector<bool> detachments;

void NoteDetachment(bool isProcessEnding, bool) {
  detachments.push_back(isProcessEnding);
}

template <typename Function>
Function* Symbol(HMODULE module, const char16_t* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddressW(module, name)));
}

std::u16string PathOf(HMODULE module) {
  char16_t path[260];
  return std::u16string(path, GetModuleFileNameW(module, path, 260));
}

class ModulesTest : public testing::Test {
 protected:
  ModulesTest() {
    handheld::SetLibraryDirectory(TEST_MODULES);
    detachments.clear();
  }
};

TEST_F(ModulesTest, AreFoundByTheirDeviceName) {
  const HMODULE module = LoadLibraryW(u"PROBE.Dll");
  ASSERT_NE(nullptr, module);
  EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(ModulesTest, AreFoundByPath) {
  const std::u16string path = handheld::DevicePath(std::string(TEST_MODULES) + "/Probe.dll");
  const HMODULE module = LoadLibraryW(path.c_str());
  ASSERT_NE(nullptr, module);
  FreeLibrary(module);
  const std::u16string linuxName = handheld::DevicePath(std::string(TEST_MODULES) + "/libprobe.so");
  const HMODULE again = LoadLibraryW(linuxName.c_str());
  EXPECT_NE(nullptr, again);
  FreeLibrary(again);
}

TEST_F(ModulesTest, AreFoundInTheLibraryDirectoryWhateverTheirCase) {
  const TempFolder folder;
  std::filesystem::copy_file(std::string(TEST_MODULES) + "/libplain.so",
                             folder.Path("libPlain2.so"));
  EXPECT_EQ(nullptr, LoadLibraryW(u"plain2.dll"));
  handheld::SetLibraryDirectory(folder.Path());
  const HMODULE module = LoadLibraryW(u"plain2.dll");
  EXPECT_NE(nullptr, module);
  FreeLibrary(module);
}

/// Users' files lie there.
TEST_F(ModulesTest, AreNotLookedForInTheModuleDirectory) {
  const TempFolder folder;
  std::filesystem::copy_file(std::string(TEST_MODULES) + "/libplain.so",
                             folder.Path("libplain2.so"));
  handheld::SetModuleDirectory(folder.Path());
  EXPECT_EQ(nullptr, LoadLibraryW(u"plain2.dll"));
  handheld::SetModuleDirectory("");
}

TEST_F(ModulesTest, ThatDoNotExistAreNotLoaded) {
  for (const char16_t* name : {u"None.dll", u"", u"\\none\\Probe.dll", u".dll", u"probe.exe"}) {
    EXPECT_EQ(nullptr, LoadLibraryW(name));
    EXPECT_EQ(ERROR_MOD_NOT_FOUND, GetLastError());
  }
  EXPECT_EQ(nullptr, LoadLibraryW(nullptr));
}

TEST_F(ModulesTest, ThatAreNoLibrariesAreNotLoaded) {
  const TempFolder folder;
  folder.Write("libbroken.so", "not a library");
  EXPECT_EQ(nullptr, LoadLibraryW(folder.DevicePath("Broken.dll").c_str()));
  EXPECT_EQ(ERROR_MOD_NOT_FOUND, GetLastError());
}

TEST_F(ModulesTest, AttachOnceAndDetachWithTheLastReference) {
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  ASSERT_NE(nullptr, module);
  Symbol<void(ProbeObserver)>(module, u"ProbeObserve")(NoteDetachment);
  EXPECT_EQ(module, Symbol<HINSTANCE()>(module, u"ProbeModule")());
  EXPECT_EQ(module, LoadLibraryW(u"Probe.dll"));
  EXPECT_EQ(1, Symbol<int()>(module, u"ProbeAttachments")());

  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_TRUE(detachments.empty());
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_EQ(std::vector<bool>{false}, detachments);
  EXPECT_FALSE(FreeLibrary(module));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
}

TEST_F(ModulesTest, AttachAgainWhenLoadedAgain) {
  for (int i = 0; i < 3; ++i) {
    const HMODULE module = LoadLibraryW(u"Probe.dll");
    ASSERT_NE(nullptr, module);
    // Fresh static data: the library was unloaded in between.
    EXPECT_EQ(1, Symbol<int()>(module, u"ProbeAttachments")());
    FreeLibrary(module);
  }
}

TEST_F(ModulesTest, ThatRefuseToAttachAreNotLoaded) {
  EXPECT_EQ(nullptr, LoadLibraryW(u"Refusing.dll"));
  constexpr DWORD ERROR_DLL_INIT_FAILED = 1114;
  EXPECT_EQ(ERROR_DLL_INIT_FAILED, GetLastError());
  EXPECT_EQ(nullptr, LoadLibraryW(u"Refusing.dll"));
}

TEST_F(ModulesTest, NeedNoEntry) {
  const HMODULE module = LoadLibraryW(u"Plain.dll");
  ASSERT_NE(nullptr, module);
  EXPECT_EQ(42, Symbol<int()>(module, u"PlainAnswer")());
  EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(ModulesTest, HandOutTheirOwnSymbolsOnly) {
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  EXPECT_NE(nullptr, GetProcAddressW(module, u"ProbeModule"));
  for (const char16_t* name : {u"none", u"malloc", u"CloseHandle", u"DllMain"}) {
    EXPECT_EQ(nullptr, GetProcAddressW(module, name));
    EXPECT_EQ(ERROR_PROC_NOT_FOUND, GetLastError());
  }
  EXPECT_EQ(nullptr, GetProcAddressW(module, nullptr));
  EXPECT_EQ(nullptr, GetProcAddressW(nullptr, u"ProbeModule"));
  FreeLibrary(module);
  EXPECT_EQ(nullptr, GetProcAddressW(module, u"ProbeModule"));
}

TEST_F(ModulesTest, TellTheirPath) {
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  EXPECT_EQ(
      handheld::DevicePath(std::filesystem::canonical(TEST_MODULES).string() + "/libprobe.so"),
      PathOf(module));
  FreeLibrary(module);
  EXPECT_EQ(u"", PathOf(module));
  EXPECT_EQ(ERROR_MOD_NOT_FOUND, GetLastError());
}

TEST_F(ModulesTest, SeemToLieInTheModuleDirectory) {
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  handheld::SetModuleDirectory("/storage card/Ferolin");
  EXPECT_EQ(u"\\storage card\\Ferolin\\libprobe.so", PathOf(module));
  handheld::SetModuleDirectory("");
  FreeLibrary(module);
}

TEST_F(ModulesTest, SeemToLieInAMappedFolder) {
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  handheld::SetModuleDirectory("/home/a\\b");
  handheld::MapPath(u"\\Ferolin", "/home/a\\b");
  EXPECT_EQ(u"\\Ferolin\\libprobe.so", PathOf(module));
  handheld::MapPath(u"\\Ferolin", "");
  handheld::SetModuleDirectory("");
  FreeLibrary(module);
}

TEST_F(ModulesTest, TheNullModuleIsTheProgram) {
  EXPECT_EQ(handheld::DevicePath(std::filesystem::canonical("/proc/self/exe").string()),
            PathOf(nullptr));
}

TEST_F(ModulesTest, PathsThatAreCutHaveAnEnd) {
  const std::u16string whole = PathOf(nullptr);
  char16_t path[5] = {u'x', u'x', u'x', u'x', u'x'};
  GetModuleFileNameW(nullptr, path, 4);
  EXPECT_EQ(whole.substr(0, 3), std::u16string(path));
  EXPECT_EQ(u'x', path[4]);
  EXPECT_EQ(0u, GetModuleFileNameW(nullptr, path, 0));
  EXPECT_EQ(0u, GetModuleFileNameW(nullptr, nullptr, 5));
}

TEST_F(ModulesTest, AreLoadedAndFreedByManyThreads) {
  std::vector<std::thread> threads;
  std::atomic<int> loaded{0};
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&loaded] {
      for (int k = 0; k < 20; ++k) {
        const HMODULE module = LoadLibraryW(u"Probe.dll");
        if (module == nullptr) {
          continue;
        }
        // No thread sees the library before attachment or after detachment.
        if (Symbol<int()>(module, u"ProbeAttachments")() == 1) {
          ++loaded;
        }
        FreeLibrary(module);
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(80, loaded);
}

/// Loaded by dlopen.
class ForeignModuleTest : public ModulesTest {
 protected:
  ForeignModuleTest() { handheld::SetModuleDirectory(folder.Path()); }
  ~ForeignModuleTest() override { handheld::SetModuleDirectory(""); }

  static void* Open() { return dlopen(TEST_MODULES "/libprobe.so", RTLD_NOW); }

  template <typename Function>
  static Function* Find(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
  }

  TempFolder folder;
};

TEST_F(ForeignModuleTest, IsAttachedOnceAndDetachedByTheLastClose) {
  void* const library = Open();
  ASSERT_NE(nullptr, library);
  Find<void(ProbeObserver)>(library, "ProbeObserve")(
      [](bool, bool areStaticsAlive) { detachments.push_back(areStaticsAlive); });
  EXPECT_EQ(library, Open());
  EXPECT_EQ(1, Find<int()>(library, "ProbeAttachments")());
  EXPECT_NE(nullptr, Find<HINSTANCE()>(library, "ProbeModule")());
  dlclose(library);
  EXPECT_TRUE(detachments.empty());
  dlclose(library);
  EXPECT_EQ(std::vector<bool>{true}, detachments);
}

TEST_F(ForeignModuleTest, IsTheOneThatLoadLibraryFinds) {
  void* const library = Open();
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  EXPECT_EQ(Find<HINSTANCE()>(library, "ProbeModule")(), module);
  EXPECT_EQ(1, Symbol<int()>(module, u"ProbeAttachments")());
  EXPECT_EQ(handheld::DevicePath(folder.Path("libprobe.so")), PathOf(module));
  Symbol<void(ProbeObserver)>(module, u"ProbeObserve")(NoteDetachment);
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_TRUE(detachments.empty());
  EXPECT_FALSE(FreeLibrary(module));
  dlclose(library);
  EXPECT_EQ(1U, detachments.size());
}

TEST_F(ForeignModuleTest, StaysUntilLoadLibraryGivesItBack) {
  void* const library = Open();
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  Symbol<void(ProbeObserver)>(module, u"ProbeObserve")(NoteDetachment);
  dlclose(library);
  EXPECT_TRUE(detachments.empty());
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_EQ(1U, detachments.size());
  EXPECT_FALSE(FreeLibrary(module));
}

/// Loads the library, lets the probe report its detachment and exits the process.
[[noreturn]] void ExitWithLibraryLoaded(LPCWSTR name) {
  LoadLibraryW(name);
  const HMODULE module = LoadLibraryW(u"Probe.dll");
  Symbol<void(ProbeObserver)>(module, u"ProbeObserve")([](bool isEnding, bool areStaticsAlive) {
    std::fprintf(stderr, "detached, ending %d, statics alive %d\n", isEnding, areStaticsAlive);
  });
  std::exit(0);
}

TEST(ModulesDeathTest, AreDetachedWhenTheProcessEnds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  handheld::SetLibraryDirectory(TEST_MODULES);
  EXPECT_EXIT(ExitWithLibraryLoaded(u"Probe.dll"), testing::ExitedWithCode(0),
              "detached, ending 1, statics alive 1");
}

[[noreturn]] void ExitWithLibraryOpen() {
  void* const library = dlopen(TEST_MODULES "/libprobe.so", RTLD_NOW);
  reinterpret_cast<void (*)(ProbeObserver)>(dlsym(library, "ProbeObserve"))(
      [](bool, bool areStaticsAlive) {
        std::fprintf(stderr, "detached, statics alive %d\n", areStaticsAlive);
      });
  std::exit(0);
}

TEST(ModulesDeathTest, ForeignOnesAreDetachedWhenTheProcessEnds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const TempFolder folder;
  handheld::SetModuleDirectory(folder.Path());
  EXPECT_EXIT(ExitWithLibraryOpen(), testing::ExitedWithCode(0), "detached, statics alive 1");
  handheld::SetModuleDirectory("");
}

/// The outer library may still use the inner one.
TEST(ModulesDeathTest, AreDetachedBeforeThoseThatTheyHaveLoadedThemselves) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  handheld::SetLibraryDirectory(TEST_MODULES);
  EXPECT_EXIT(ExitWithLibraryLoaded(u"Outer.dll"), testing::ExitedWithCode(0),
              "outer detached, statics alive 1\ndetached, ending 1, statics alive 1");
}

}  // namespace
