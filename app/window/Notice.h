// The notice that the receiver is silent.
#pragma once

#include <windows.h>

namespace app {

class Painter;
class Session;

/// Draws a strip over the middle of the frame that `painter` has begun, and returns its place.
RECT DrawNotice(Painter& painter, const Session& session);

}  // namespace app
