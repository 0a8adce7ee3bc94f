#pragma once

#include <windows.h>

#include "../api/pm.h"
