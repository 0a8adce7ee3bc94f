#include "window/WindowTitle.h"

namespace host {

std::string WindowTitle(const Update& update, const std::string& viewName,
                        const std::string& sourceName) {
  const std::string title = update.number == 0 ? "Waiting for positions" : viewName;
  return (update.notice.empty() ? title : update.notice) + " - Ferolin, " + sourceName;
}

}  // namespace host
