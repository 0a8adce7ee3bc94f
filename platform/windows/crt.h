#pragma once

#include "../api/crt.h"
