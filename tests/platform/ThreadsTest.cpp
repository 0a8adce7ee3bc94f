#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <future>
#include <thread>
#include <vector>

#include "handheld.h"

namespace {

DWORD WINAPI ReturnNumber(LPVOID argument) {
  return *static_cast<DWORD*>(argument);
}

DWORD WINAPI WaitForPromise(LPVOID argument) {
  static_cast<std::promise<void>*>(argument)->get_future().wait();
  return 0;
}

DWORD AwaitEnd(HANDLE thread) {
  DWORD exitCode = STILL_ACTIVE;
  while (GetExitCodeThread(thread, &exitCode) && exitCode == STILL_ACTIVE) {
    Sleep(1);
  }
  return exitCode;
}

TEST(Threads, RunTheirProcedureAndKeepItsResult) {
  DWORD number = 42;
  DWORD threadId = 0;
  const HANDLE thread = CreateThread(nullptr, 0, ReturnNumber, &number, 0, &threadId);
  ASSERT_NE(nullptr, thread);
  EXPECT_NE(0u, threadId);
  EXPECT_EQ(42u, AwaitEnd(thread));
  EXPECT_TRUE(CloseHandle(thread));
}

TEST(Threads, AreActiveUntilTheProcedureReturns) {
  std::promise<void> mayEnd;
  const HANDLE thread = CreateThread(nullptr, 0, WaitForPromise, &mayEnd, 0, nullptr);
  DWORD exitCode = 0;
  EXPECT_TRUE(GetExitCodeThread(thread, &exitCode));
  EXPECT_EQ(STILL_ACTIVE, exitCode);
  mayEnd.set_value();
  EXPECT_EQ(0u, AwaitEnd(thread));
  CloseHandle(thread);
}

TEST(Threads, RunOnWhenTheirHandleIsClosed) {
  struct State {
    std::atomic<bool> mayEnd{false};
    std::atomic<bool> ends{false};
  } state;
  const auto procedure = [](LPVOID argument) -> DWORD {
    auto& shared = *static_cast<State*>(argument);
    while (!shared.mayEnd) {
      Sleep(1);
    }
    shared.ends = true;
    return 0;
  };
  const HANDLE thread = CreateThread(nullptr, 0, procedure, &state, 0, nullptr);
  EXPECT_TRUE(CloseHandle(thread));
  DWORD exitCode;
  EXPECT_FALSE(GetExitCodeThread(thread, &exitCode));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
  state.mayEnd = true;
  while (!state.ends) {
    Sleep(1);
  }
}

TEST(Threads, WritesAreSeenOnceTheThreadHasEnded) {
  int written = 0;
  const auto procedure = [](LPVOID argument) -> DWORD {
    *static_cast<int*>(argument) = 7;
    return 1;
  };
  const HANDLE thread = CreateThread(nullptr, 0, procedure, &written, 0, nullptr);
  AwaitEnd(thread);
  EXPECT_EQ(7, written);
  CloseHandle(thread);
}

TEST(Threads, NeedAProcedureAndNoFlags) {
  EXPECT_EQ(nullptr, CreateThread(nullptr, 0, nullptr, nullptr, 0, nullptr));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  DWORD number = 0;
  EXPECT_EQ(nullptr, CreateThread(nullptr, 0, ReturnNumber, &number, 4, nullptr));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

TEST(Threads, MisuseOfTheirCallsFails) {
  DWORD exitCode;
  EXPECT_FALSE(GetExitCodeThread(nullptr, &exitCode));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
  EXPECT_FALSE(GetExitCodeThread(INVALID_HANDLE_VALUE, &exitCode));
  EXPECT_FALSE(SetThreadPriority(nullptr, 3));
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());

  DWORD number = 1;
  const HANDLE thread = CreateThread(nullptr, 0, ReturnNumber, &number, 0, nullptr);
  EXPECT_FALSE(GetExitCodeThread(thread, nullptr));
  EXPECT_FALSE(SetThreadPriority(thread, 8));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_FALSE(SetThreadPriority(thread, -1));
  AwaitEnd(thread);
  EXPECT_TRUE(SetThreadPriority(thread, 5));
  CloseHandle(thread);
}

TEST(Threads, TheLowestPriorityYieldsToOthers) {
  struct State {
    std::promise<void> isSet;
    int nice = 0;
  } state;
  const auto procedure = [](LPVOID argument) -> DWORD {
    auto& shared = *static_cast<State*>(argument);
    shared.isSet.get_future().wait();
    shared.nice = getpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)));
    return 0;
  };
  const int own = getpriority(PRIO_PROCESS, 0);
  const HANDLE thread = CreateThread(nullptr, 0, procedure, &state, 0, nullptr);
  EXPECT_TRUE(SetThreadPriority(thread, 5));
  // A thread that has not started yet applies it itself, before its procedure.
  state.isSet.set_value();
  AwaitEnd(thread);
  EXPECT_GT(state.nice, own);
  EXPECT_EQ(own, getpriority(PRIO_PROCESS, 0));
  CloseHandle(thread);
}

TEST(Threads, LastErrorsAreTheirOwn) {
  EXPECT_FALSE(CloseHandle(nullptr));
  DWORD other = 99;
  std::thread([&other] { other = GetLastError(); }).join();
  EXPECT_EQ(ERROR_SUCCESS, other);
  EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
}

TEST(Threads, OpenHandlesAreCounted) {
  const int before = handheld::HandlesAlive();
  DWORD number = 1;
  const HANDLE thread = CreateThread(nullptr, 0, ReturnNumber, &number, 0, nullptr);
  EXPECT_EQ(before + 1, handheld::HandlesAlive());
  AwaitEnd(thread);
  EXPECT_EQ(before + 1, handheld::HandlesAlive());
  CloseHandle(thread);
  EXPECT_EQ(before, handheld::HandlesAlive());
}

TEST(CriticalSections, LetOneThreadInAtATime) {
  CRITICAL_SECTION section;
  InitializeCriticalSection(&section);
  int counter = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int k = 0; k < 1000; ++k) {
        EnterCriticalSection(&section);
        ++counter;
        LeaveCriticalSection(&section);
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(4000, counter);
  DeleteCriticalSection(&section);
}

TEST(CriticalSections, MayBeEnteredAgainByTheirThread) {
  CRITICAL_SECTION section;
  InitializeCriticalSection(&section);
  EnterCriticalSection(&section);
  EnterCriticalSection(&section);
  LeaveCriticalSection(&section);
  LeaveCriticalSection(&section);
  std::thread([&] {
    EnterCriticalSection(&section);
    LeaveCriticalSection(&section);
  }).join();
  DeleteCriticalSection(&section);
}

}  // namespace
