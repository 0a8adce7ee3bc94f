#include "RecordingSms.h"

#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

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
  const auto busy = std::filesystem::path(name).replace_filename(RECORDING_SMS_BUSY);
  std::error_code notThere;
  while (std::filesystem::exists(busy, notThere) && !std::filesystem::is_empty(busy, notThere)) {
    Sleep(10);
  }
}
