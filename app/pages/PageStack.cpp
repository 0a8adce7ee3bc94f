#include "pages/PageStack.h"

#include <algorithm>

#include "pages/Keypad.h"
#include "pages/ListPage.h"
#include "pages/Session.h"

namespace app {

PageStack::OpenPage PageStack::Make(PageId page) const {
  if (page == PageId::RECIPIENTS) {
    return {page, std::make_unique<Keypad>(session)};
  }
  return {page, std::make_unique<ListPage>(page, session)};
}

void PageStack::Open(PageId page) {
  session.isReportSent = false;
  pages.push_back(Make(page));
}

void PageStack::OpenBelow(PageId page) {
  pages.insert(pages.begin(), Make(page));
}

void PageStack::CloseTop() {
  if (!pages.empty()) {
    pages.pop_back();
  }
}

void PageStack::Close(PageId page) {
  std::erase_if(pages, [page](const OpenPage& each) { return each.id == page; });
}

bool PageStack::IsOpen(PageId page) const {
  return std::ranges::any_of(pages, [page](const OpenPage& each) { return each.id == page; });
}

}  // namespace app
