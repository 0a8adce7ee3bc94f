#include "web/QrCode.h"

#include <qrencode.h>

#include <memory>

namespace host {

namespace {

/// Modules of light around the code, which cameras need.
constexpr int MARGIN = 2;
/// Black on white, whatever the terminal's colours are.
constexpr const char* COLORS = "\x1b[30;107m";
constexpr const char* NO_COLORS = "\x1b[0m";

bool IsDark(const QRcode& code, int x, int y) {
  const bool isInside = x >= 0 && y >= 0 && x < code.width && y < code.width;
  return isInside && (code.data[y * code.width + x] & 1) != 0;
}

const char* GetBlock(bool isUpperDark, bool isLowerDark) {
  if (isUpperDark) {
    return isLowerDark ? "\u2588" : "\u2580";
  }
  return isLowerDark ? "\u2584" : " ";
}

}  // namespace

std::string DrawQrCode(const std::string& text) {
  constexpr int SMALLEST_VERSION = 0;
  constexpr int WITH_CASE = 1;
  const std::unique_ptr<QRcode, void (*)(QRcode*)> code(
      QRcode_encodeString(text.c_str(), SMALLEST_VERSION, QR_ECLEVEL_L, QR_MODE_8, WITH_CASE),
      QRcode_free);
  if (code == nullptr) {
    return "";
  }
  std::string drawn;
  for (int y = -MARGIN; y < code->width + MARGIN; y += 2) {
    drawn += COLORS;
    for (int x = -MARGIN; x < code->width + MARGIN; ++x) {
      drawn += GetBlock(IsDark(*code, x, y), IsDark(*code, x, y + 1));
    }
    drawn += std::string(NO_COLORS) + "\n";
  }
  return drawn;
}

}  // namespace host
