// The user's language.
#pragma once

namespace handheld {

bool IsRussian();

}  // namespace handheld
