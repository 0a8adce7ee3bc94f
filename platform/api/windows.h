// The device's API: the names, types, constants and signatures that this system uses.
#pragma once

#include <winbase.h>
#include <windef.h>
#include <wingdi.h>
#include <winnls.h>
#include <winuser.h>
