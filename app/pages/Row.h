// A row of a page.
#pragma once

#include <vector>

#include "base/WideString.h"
#include "drawing/Icons.h"
#include "text/Words.h"

namespace app {

class Session;

/// The pages by number.
enum class PageId {
  NONE,
  WAITING,
  SETTINGS,
  LIMITS,
  READOUTS,
  RESET,
  RECEIVER,
  PORT,
  BAUD_RATE,
  PICTURE,
  SMS,
  RECIPIENTS,  ///< the keypad
  ABOUT,
};

enum class RowKind {
  GAP,      ///< space between groups of rows
  HEADING,  ///< a text over a group of rows
  LINK,     ///< opens another page
  SWITCH,   ///< on or off
  CHOICE,   ///< one of several rows, marked when it is chosen
  STEPPER,  ///< a number with buttons that lower and raise it
  ACTION,   ///< does something
  READOUT,  ///< shows a text, in as many lines as it takes
};

/// A row is one line of a table. Functions get the row's argument: the number of a limit, a
/// read-out, a port. Those that a kind does not need stay null.
struct Row {
  using Text = WideString (*)(const Session& session, int argument);
  using Get = int (*)(const Session& session, int argument);
  using Set = void (*)(Session& session, int argument, int value);

  RowKind kind = RowKind::GAP;
  Word label = Word::NONE;
  Icon icon = Icon::NONE;
  /// Label that is no word of the application, such as a read-out's name.
  Text getLabel = nullptr;
  Text getText = nullptr;
  /// State of a switch or choice: above 0 is on.
  Get get = nullptr;
  /// `value` is the new state of a switch or choice, the direction -1 or 1 of a stepper, 1 of an
  /// action.
  Set set = nullptr;
  /// Null: always enabled.
  Get isEnabled = nullptr;
  PageId page = PageId::NONE;
  int argument = 0;
  /// Destroys something: asks for a second tap.
  bool asksAgain = false;
};

using Rows = std::vector<Row>;

}  // namespace app
