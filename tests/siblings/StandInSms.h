#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// What the stand-in for the system's text messages was given last.
struct TakenMessage {
  std::u16string number;
  int numberType = -1;
  std::u16string text;
  std::vector<BYTE> provider;
};
