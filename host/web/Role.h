// What a browser may do.
#pragma once

namespace host {

enum class Role { NONE, LOOK, CONTROL };

}  // namespace host
