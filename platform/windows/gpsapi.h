#pragma once

#include "../api/gpsapi.h"
