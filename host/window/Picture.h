// The user's choices of view and picture, as the engine has them.
#pragma once

#include "commandline/Options.h"
#include "engine/EngineLibrary.h"

namespace host {

/// Gives the engine all choices but the view.
void ApplyPicture(const EngineLibrary::Functions& engine, const Options::Picture& picture);

/// Number of the view; the first one when there is none with the number in `picture`.
int GetChosenView(const EngineLibrary::Functions& engine, const Options::Picture& picture);

/// The choices as they are now, all set, with that view.
Options::Picture DescribePicture(const EngineLibrary::Functions& engine, int view);

}  // namespace host
