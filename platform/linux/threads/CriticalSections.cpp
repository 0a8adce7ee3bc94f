#include <pthread.h>
#include <windows.h>

namespace handheld {

namespace {

pthread_mutex_t* MutexOf(CRITICAL_SECTION* section) {
  static_assert(sizeof(pthread_mutex_t) <= sizeof(CRITICAL_SECTION));
  static_assert(alignof(pthread_mutex_t) <= alignof(CRITICAL_SECTION));
  return reinterpret_cast<pthread_mutex_t*>(section->opaque);
}

}  // namespace

extern "C" {

void WINAPI InitializeCriticalSection(CRITICAL_SECTION* section) {
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(MutexOf(section), &attributes);
  pthread_mutexattr_destroy(&attributes);
}

void WINAPI EnterCriticalSection(CRITICAL_SECTION* section) {
  pthread_mutex_lock(MutexOf(section));
}

void WINAPI LeaveCriticalSection(CRITICAL_SECTION* section) {
  pthread_mutex_unlock(MutexOf(section));
}

void WINAPI DeleteCriticalSection(CRITICAL_SECTION* section) {
  pthread_mutex_destroy(MutexOf(section));
}

}  // extern "C"

}  // namespace handheld
