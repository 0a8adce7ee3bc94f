#include "handheld/Parlex.h"

#include "base/CodePage.h"
#include "handheld/TextMessaging.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) {
  return TRUE;
}

void WINAPI SendParlex(LPCWSTR recipient, LPCSTR message) {
  if (recipient != nullptr && message != nullptr) {
    const parlex::TextMessaging messaging;
    messaging.Send(recipient, ferolin::Widen(message));
  }
}
}
