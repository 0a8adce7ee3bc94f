// Loads a sibling library the way the engine does and calls it as told, line by line, on standard
// input. Answers each line with one line. Ends with its input.
//
// load NAME              "loaded", or "missing" when the library or one of its entry points is
// unload                 "done MILLISECONDS" start, stop            "done MILLISECONDS" that the
// call took position               the record's bytes in hexadecimal codepage NUMBER        "done
// 0" send NUMBER TEXT       "done MILLISECONDS"; the number as UTF-8 and the text as ANSI bytes,
// both in hexadecimal
#include <gpsapi.h>
#include <handheld.h>

#include <chrono>
#include <iostream>
#include <sstream>
#include <string>

namespace {

HMODULE library = nullptr;
void (*startGpsApi)() = nullptr;
void (*stopGpsApi)() = nullptr;
const GPS_POSITION* (*getGpsPos)() = nullptr;
void (*sendParlex)(LPCWSTR, LPCSTR) = nullptr;

template <typename Function>
bool Take(Function& function, LPCWSTR name) {
  // By way of an untyped pointer, since no two of these have the same type.
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddressW(library, name)));
  return function != nullptr;
}

bool Load(const std::string& name) {
  library = LoadLibraryW(handheld::WideFromUtf8(name).c_str());
  if (!library) {
    return false;
  }
  if (name == "Parlex.DLL") {
    return Take(sendParlex, TEXT("SendParlex"));
  }
  return Take(startGpsApi, TEXT("StartGPSAPI")) && Take(stopGpsApi, TEXT("StopGPSAPI")) &&
         Take(getGpsPos, TEXT("GetGPSPos"));
}

std::string ToHex(const unsigned char* bytes, std::size_t size) {
  static constexpr char DIGITS[] = "0123456789abcdef";
  std::string hex;
  for (std::size_t i = 0; i < size; i++) {
    hex += DIGITS[bytes[i] >> 4];
    hex += DIGITS[bytes[i] & 15];
  }
  return hex;
}

std::string FromHex(const std::string& hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

std::string GetPosition() {
  const GPS_POSITION* const record = getGpsPos();
  const std::string hex = ToHex(reinterpret_cast<const unsigned char*>(record), sizeof *record);
  return getGpsPos() == record ? hex : "the record has moved";
}

template <typename Action>
std::string Timed(Action action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  const auto taken = std::chrono::steady_clock::now() - start;
  return "done " +
         std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(taken).count());
}

std::string Obey(std::istringstream& words) {
  std::string command, first, second;
  words >> command >> first >> second;
  if (command == "load") {
    return Load(first) ? "loaded" : "missing";
  }
  if (command == "unload") {
    return Timed([] { FreeLibrary(library); });
  }
  if (command == "start") {
    return Timed([] { startGpsApi(); });
  }
  if (command == "stop") {
    return Timed([] { stopGpsApi(); });
  }
  if (command == "position") {
    return GetPosition();
  }
  if (command == "codepage") {
    return Timed([&] { handheld::SetCodePage(static_cast<UINT>(std::stoi(first))); });
  }
  if (command == "send") {
    const std::u16string number = handheld::WideFromUtf8(FromHex(first));
    const std::string text = FromHex(second);
    return Timed([&] { sendParlex(number.c_str(), text.c_str()); });
  }
  return "not understood";
}

}  // namespace

int main() {
  std::string line;
  while (std::getline(std::cin, line)) {
    std::istringstream words(line);
    std::cout << Obey(words) << std::endl;
  }
}
