// Text inside of XML.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// Escapes what has a meaning in XML. Characters that XML cannot hold and bytes that are no UTF-8
/// become "?".
std::string XmlText(std::string_view text);

}  // namespace host
