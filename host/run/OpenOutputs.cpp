#include "run/OpenOutputs.h"

#include "outputs/ContactSheet.h"
#include "outputs/FrameFiles.h"
#include "outputs/JsonOutput.h"
#include "outputs/LineOutput.h"
#include "outputs/NoOutput.h"
#include "outputs/Screen.h"
#include "outputs/TableOutput.h"

namespace host {

namespace {

/// The demo's car is well on its way by then.
constexpr int UPDATES_BEFORE_SHEET = 200;

}  // namespace

bool ShowsTable(const Options& options) {
  // A table would cover the links for browsers.
  return Screen::IsTerminal() && !options.json && !WantsPictures(options) && !options.web;
}

std::unique_ptr<Output> OpenOutput(const Options& options, const EngineLibrary& engine,
                                   const ViewWindow* window, StandardOutput& standard,
                                   Messages& messages) {
  if (options.json) {
    return std::make_unique<JsonOutput>(standard, engine);
  }
  const ShownReadouts shown(engine, options.units,
                            options.decimalDegrees
                                ? ShownReadouts::Angles::DECIMAL_DEGREES
                                : ShownReadouts::Angles::DEGREES_MINUTES_SECONDS);
  if (ShowsTable(options)) {
    messages.Hold();
    return std::make_unique<TableOutput>(standard, DescribeSource(options), shown,
                                         engine.GetReadouts());
  }
  if (window != nullptr && window->HasDisplay()) {
    return std::make_unique<NoOutput>();
  }
  return std::make_unique<LineOutput>(standard, shown);
}

std::unique_ptr<Pictures> OpenPictures(const Options& options, const EngineLibrary& engine,
                                       ViewWindow* window) {
  if (!options.contactSheetFile.empty()) {
    return std::make_unique<ContactSheet>(engine(), options.contactSheetFile, UPDATES_BEFORE_SHEET);
  }
  const bool wantsFrames = !options.framesFolder.empty() || !options.shotFile.empty();
  if (window == nullptr || !wantsFrames) {
    return nullptr;
  }
  return std::make_unique<FrameFiles>(window->GetRenderWindow(), options.framesFolder,
                                      options.shotFile);
}

}  // namespace host
