// The pages as tables of rows.
#pragma once

#include "pages/Row.h"

namespace app {

Word GetTitle(PageId page);

/// Rows of a page as it stands now. The keypad has none.
Rows MakeRows(PageId page, const Session& session);

}  // namespace app
