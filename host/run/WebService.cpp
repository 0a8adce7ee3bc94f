#include "run/WebService.h"

#include "web/QrCode.h"
#include "window/ViewNames.h"

namespace host {

namespace {

int FindDpi(HWND window) {
  const HDC dc = GetDC(window);
  const int dpi = GetDeviceCaps(dc, LOGPIXELSX);
  ReleaseDC(window, dc);
  return dpi;
}

}  // namespace

std::unique_ptr<WebService> WebService::Open(const EngineLibrary& engine, const Options& options,
                                             const std::string& home, const HostWindow& window,
                                             ViewWindow* views) {
  return options.web
             ? std::unique_ptr<WebService>(new WebService(engine, options, home, window, *views))
             : nullptr;
}

WebService::WebService(const EngineLibrary& engine, const Options& options, const std::string& home,
                       const HostWindow& window, ViewWindow& views)
    : engine(engine),
      views(views),
      exchange([&window] { window.Post(HostWindow::Event::REMOTE); }),
      server(options, home, exchange) {}

void WebService::Start(Messages& messages) {
  ShowFacts();
  server.Start();
  for (const std::string& link : server.DescribeLinks()) {
    messages.Say(link);
  }
  if (const std::string link = server.GetLinkForOthers(); !link.empty()) {
    Messages::ShowOnTerminal(DrawQrCode(link));
  }
}

void WebService::Show(const Update& update) {
  exchange.PutUpdate(update, ReadFigures(engine));
  ShowFacts();
}

void WebService::TakeInputs() {
  ApplicationWindow& application = *views.GetApplication();
  if (const bool hasViewers = exchange.HasViewers(); hasViewers != isWatched) {
    isWatched = hasViewers;
    application.SetWatched(isWatched);
  }
  for (const RemoteInput& input : exchange.TakeInputs()) {
    if (application.TakeInput(input)) {
      exchange.TellLeft(input.stream);
    }
  }
  ShowFacts();
}

void WebService::ShowFacts() {
  const ApplicationWindow& application = *views.GetApplication();
  WebFacts facts;
  facts.isRussian = engine().IsRussianLocale() != 0;
  for (int event = 0; event < engine().GetSpeedEventsCount(); ++event) {
    facts.limits.push_back(
        {engine().GetEventSpeedLimit(event), engine().GetUseEventSound(event) != 0});
  }
  facts.window = application.GetHandle();
  facts.viewName = GetViewName(engine(), application.GetView());
  facts.dpi = FindDpi(application.GetHandle());
  facts.mayFit = application.MayFit();
  exchange.PutFacts(facts);
}

}  // namespace host
