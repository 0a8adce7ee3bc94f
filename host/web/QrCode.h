// Texts for the cameras of telephones.
#pragma once

#include <string>

namespace host {

/// The text as a QR code of block letters, two modules high each, light on dark terminals and dark
/// on light ones alike. Empty when the text is too long.
std::string DrawQrCode(const std::string& text);

}  // namespace host
