// The device's API: names, types, constants and signatures of just what this system uses.
#pragma once

#include <winbase.h>
#include <windef.h>
#include <wingdi.h>
#include <winnls.h>
#include <winuser.h>
