#include "RecordingSms.h"

#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

extern "C" void WINAPI SendParlex(LPCWSTR recipient, LPCSTR message) {
  const char* name = std::getenv(RECORDING_SMS_FILE);
  if (name == nullptr) {
    return;
  }
  {
    std::ofstream file(name, std::ios::app);
    for (; *recipient != 0; ++recipient) {
      file << static_cast<char>(*recipient);
    }
    file << '\n' << message << '\n';
  }
  while (std::filesystem::exists(std::string(name) + RECORDING_SMS_BUSY)) {
    Sleep(10);
  }
}
