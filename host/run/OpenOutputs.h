// Opens what the user wants to see.
#pragma once

#include <memory>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "outputs/Output.h"
#include "outputs/Pictures.h"
#include "outputs/StandardOutput.h"
#include "window/ViewWindow.h"

namespace host {

/// Whether the read-outs are shown as a live table on a terminal.
bool ShowsTable(const Options& options);

/// The table, JSON, lines of text, or nothing when a window shows everything. While the table is on
/// the screen, messages are held. `window` may be null; all arguments outlive the output.
std::unique_ptr<Output> OpenOutput(const Options& options, const EngineLibrary& engine,
                                   const ViewWindow* window, StandardOutput& standard,
                                   Messages& messages);

/// Null when no pictures are to be written. `window` is null or the window that frames are drawn
/// into; all arguments outlive the pictures. Throws HostError.
std::unique_ptr<Pictures> OpenPictures(const Options& options, const EngineLibrary& engine,
                                       ViewWindow* window);

}  // namespace host
