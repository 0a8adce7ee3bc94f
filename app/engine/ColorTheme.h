// Themes: the colours of all views under one name.
#pragma once

#include <string>
#include <string_view>

#include "base/WideString.h"

namespace app {

using ferolin::WideString;

class LoadedEngine;

/// Keys of the application's section of the settings file. A theme's file has both with its name.
namespace theme_keys {
constexpr LPCWSTR CHOSEN = TEXT("Theme");
/// Theme whose colours are in the settings; empty when the user has chosen one since.
constexpr LPCWSTR TAKEN = TEXT("ThemeTaken");
}  // namespace theme_keys

/// Name of a theme that was chosen and whose colours are not in the settings yet; empty when there
/// is none.
WideString FindNewTheme(const LoadedEngine& engine);

/// The text of a settings file with the values of a theme for the keys that both have. All else
/// stays, comments too.
std::string WithTheme(std::string_view settings, std::string_view theme);

/// Puts a theme into the settings file in the engine's folder, which ends with its backslash. The
/// engine is not loaded: its views read their colours at the start and write them at the end. A
/// theme that is missing changes nothing.
void TakeTheme(const WideString& folder, const WideString& name);

}  // namespace app
