#include "pages/Pages.h"

#include <algorithm>
#include <iterator>

#include "pages/PageRows.h"

namespace app {

namespace {

struct Page {
  PageId id;
  Word title;
  /// Null for the keypad, which has no rows.
  Rows (*makeRows)(const Session& session);
};

constexpr Page PAGES[] = {
    {PageId::WAITING, Word::WAITING, &MakeWaitingRows},
    {PageId::SETTINGS, Word::SETTINGS, &MakeSettingsRows},
    {PageId::LIMITS, Word::SPEED_LIMITS, &MakeLimitRows},
    {PageId::READOUTS, Word::READOUTS, &MakeReadoutRows},
    {PageId::RESET, Word::RESET_READOUTS, &MakeResetRows},
    {PageId::RECEIVER, Word::RECEIVER, &MakeReceiverRows},
    {PageId::PORT, Word::PORT, &MakePortRows},
    {PageId::BAUD_RATE, Word::BAUD_RATE, &MakeBaudRateRows},
    {PageId::PICTURE, Word::PICTURE, &MakePictureRows},
    {PageId::SMS, Word::POSITION_BY_SMS, &MakeSmsRows},
    {PageId::RECIPIENTS, Word::RECIPIENTS, nullptr},
    {PageId::ABOUT, Word::ABOUT, &MakeAboutRows},
};

/// Null when there is no such page.
const Page* Find(PageId id) {
  const auto* found = std::ranges::find(PAGES, id, &Page::id);
  return found == std::end(PAGES) ? nullptr : found;
}

}  // namespace

Word GetTitle(PageId page) {
  const Page* found = Find(page);
  return found != nullptr ? found->title : Word::NONE;
}

Rows MakeRows(PageId page, const Session& session) {
  const Page* found = Find(page);
  return found != nullptr && found->makeRows != nullptr ? found->makeRows(session) : Rows();
}

}  // namespace app
