// The words of the application, in English and Russian.
#pragma once

#include "base/WideString.h"

namespace app {

using ferolin::WideString;
using ferolin::WideStringView;

enum class Word {
  NONE,
  // Titles and links
  SETTINGS,
  SPEED_LIMITS,
  READOUTS,
  RESET_READOUTS,
  RECEIVER,
  PICTURE,
  POSITION_BY_SMS,
  ABOUT,
  QUIT,
  // Settings
  KEEP_SCREEN_ON,
  WRITE_TRACK,
  BEEP_AT_STANDSTILL,
  LIGHT_THEME,
  // Speed limits
  LIMIT_1,
  LIMIT_2,
  LIMIT_3,
  LIMIT,
  REPEAT_UP_TO,
  KMH,
  // Receiver
  GPS_SERVICE,
  SERIAL_PORT,
  PORT,
  BAUD_RATE,
  AS_SET,
  NO_PORTS,
  CHOSEN_AT_START,
  // Picture
  MIRROR,
  UPSIDE_DOWN,
  TURN,
  INVERT_COLORS,
  FROM_NEXT_START,
  STANDARD_COLORS,
  DAY_COLORS,
  NIGHT_COLORS,
  // Reset
  RESET_ALL,
  TAP_AGAIN,
  // SMS
  RECIPIENTS,
  NO_RECIPIENTS,
  NUMBERS,
  SEND_AUTOMATICALLY,
  INTERVAL,
  MINUTES,
  ONLY_AFTER_MOVING,
  SEND_NOW,
  SENT,
  MESSAGE_TEXT,
  NOT_AVAILABLE,
  // About
  VERSION,
  LICENSE,
  MIT_LICENSE,
  // Waiting
  WAITING,
  NO_PORT_CHOSEN,
  PORT_IS_MISSING,
  NO_DATA,
  NO_POSITION,
  DATA_ENDED,
  POSITION_LOST,
  SHOW_VIEWS,
  COUNT
};

/// Russian texts from now on (true) or English ones.
void SetRussian(bool isRussian);

WideString GetWord(Word word);

}  // namespace app
