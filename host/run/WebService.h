// The speedometer in browsers.
#pragma once

#include <memory>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "web/Exchange.h"
#include "web/WebServer.h"
#include "window/HostWindow.h"
#include "window/ViewWindow.h"

namespace host {

/// Gives the server what browsers see, and the views what they do. For the host's thread.
class WebService {
 public:
  /// Null when the user does not ask for it. `views` is not null otherwise; all arguments but `home`
  /// outlive the service. Throws HostError.
  static std::unique_ptr<WebService> Open(const EngineLibrary& engine, const Options& options,
                                          const std::string& home, const HostWindow& window,
                                          ViewWindow* views);

  /// Answers browsers from now on, and tells the user where.
  void Start(Messages& messages);

  void Show(const Update& update);

  /// Call at HostWindow::Event::REMOTE.
  void TakeInputs();

 private:
  WebService(const EngineLibrary& engine, const Options& options, const std::string& home,
             const HostWindow& window, ViewWindow& views);

  void ShowFacts();

  const EngineLibrary& engine;
  ViewWindow& views;
  bool isWatched = false;
  Exchange exchange;
  WebServer server;
};

}  // namespace host
