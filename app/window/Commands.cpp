#include "window/Commands.h"

#include <ferolin.h>

#include <algorithm>
#include <iterator>

namespace app {

namespace {

struct Button {
  LPARAM code;
  Command command;
};

constexpr Button BUTTONS[] = {
    {FEROLIN_BUTTON_PREVIOUS_VIEW, Command::PREVIOUS_VIEW},
    {FEROLIN_BUTTON_NEXT_VIEW, Command::NEXT_VIEW},
    {FEROLIN_BUTTON_RESET_ALL, Command::OPEN_RESET},
    {FEROLIN_BUTTON_SEND_SMS, Command::OPEN_SMS},
    {FEROLIN_BUTTON_OPTIONS, Command::OPEN_SETTINGS},
    {FEROLIN_BUTTON_CLOSE, Command::QUIT},
    {FEROLIN_BUTTON_FLIP_HORIZONTALLY, Command::MIRROR},
    {FEROLIN_BUTTON_ROTATE_SCREEN, Command::TURN},
};

struct Key {
  WPARAM key;
  Command command;
};

constexpr Key KEYS[] = {
    {VK_LEFT, Command::PREVIOUS_VIEW},
    {VK_RIGHT, Command::NEXT_VIEW},
    {VK_RETURN, Command::OPEN_SETTINGS},
    {'O', Command::OPEN_SETTINGS},
    {'H', Command::MIRROR},
    {'V', Command::FLIP},
    {'R', Command::TURN},
    {'I', Command::INVERT_COLORS},
    {'B', Command::TOGGLE_BUTTONS},
    {'S', Command::OPEN_SMS},
    {VK_HOME, Command::OPEN_RESET},
    {VK_DELETE, Command::OPEN_RESET},
    {'F', Command::TOGGLE_FULL_SCREEN},
    {VK_ESCAPE, Command::LEAVE},
    {'Q', Command::QUIT},
};

}  // namespace

Command FindButtonCommand(LPARAM code) {
  const auto* found = std::ranges::find(BUTTONS, code, &Button::code);
  return found == std::end(BUTTONS) ? Command::NONE : found->command;
}

Command FindKeyCommand(WPARAM key) {
  const auto* found = std::ranges::find(KEYS, key, &Key::key);
  return found == std::end(KEYS) ? Command::NONE : found->command;
}

}  // namespace app
