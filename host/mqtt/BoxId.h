// The name under which a box is known to a broker.
#pragma once

#include <string>

namespace host {

/// `asked` if it is not empty, else the name kept in the folder `home`, else a new one of eight
/// random letters and digits. Keeps the name there. Throws HostError when it cannot be kept.
std::string ChooseBoxId(const std::string& asked, const std::string& home);

}  // namespace host
