// The choices of the user that the engine does not keep by itself, in its settings file.
#pragma once

namespace app {

class EngineViews;
class Session;

/// Takes up what was kept; what is missing stays as it is. Before the receiver is started.
void ApplyPreferences(Session& session, EngineViews& views);

/// Keeps the present choices and the states of the trip's read-outs.
void KeepPreferences(const Session& session, const EngineViews& views);

}  // namespace app
