// The names of the engine's views.
#pragma once

#include <optional>
#include <string>

#include "engine/EngineLibrary.h"

namespace host {

/// UTF-8; empty when there is no such view.
std::string GetViewName(const EngineLibrary::Functions& engine, int view);

/// Nothing when the text is not the number of a view.
std::optional<int> ParseViewNumber(const EngineLibrary::Functions& engine, const std::string& text);

/// Number of the view with that name in the engine's language, plain name ("dial", "speed",
/// "satellites", "path", "chart") or number, in upper or lower case. Throws UsageError, which
/// lists the names.
int FindView(const EngineLibrary::Functions& engine, const std::string& nameOrNumber);

}  // namespace host
