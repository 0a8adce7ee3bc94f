// The rows of each page, in a source for each topic.
#pragma once

#include "pages/Row.h"

namespace app {

Rows MakeWaitingRows(const Session& session);
Rows MakeSettingsRows(const Session& session);
Rows MakePictureRows(const Session& session);
Rows MakeAboutRows(const Session& session);

/// The limits that the engine keeps in its settings.
Rows MakeLimitRows(const Session& session);

Rows MakeReceiverRows(const Session& session);
Rows MakePortRows(const Session& session);
Rows MakeBaudRateRows(const Session& session);

Rows MakeReadoutRows(const Session& session);
/// Only what adds up over a trip can be started afresh.
Rows MakeResetRows(const Session& session);

Rows MakeSmsRows(const Session& session);

}  // namespace app
