// Sizes of structures that the device fills or reads, as its own compiler lays them out: no
// packing, doubles at multiples of 8.

#include <gpsapi.h>
#include <imaging.h>
#include <pm.h>
#include <sms.h>
#include <windows.h>

#include <cstddef>

static_assert(sizeof(WCHAR) == 2);
static_assert(sizeof(void*) == 4);
static_assert(alignof(double) == 8);

static_assert(sizeof(FILETIME) == 8);
static_assert(sizeof(SYSTEMTIME) == 16);
static_assert(sizeof(WIN32_FIND_DATAW) == 560);
static_assert(offsetof(WIN32_FIND_DATAW, cFileName) == 40);
static_assert(sizeof(DCB) == 28);
static_assert(offsetof(DCB, ByteSize) == 18);
// The device's is 20 bytes long.
static_assert(sizeof(CRITICAL_SECTION) >= 20);
static_assert(sizeof(SYSTEM_POWER_STATUS_EX) == 24);
static_assert(offsetof(SYSTEM_POWER_STATUS_EX, BackupBatteryLifeTime) == 16);

static_assert(sizeof(MSG) == 28);
static_assert(sizeof(WNDCLASSW) == 40);
static_assert(sizeof(RECT) == 16);
static_assert(sizeof(PAINTSTRUCT) == 64);
static_assert(offsetof(PAINTSTRUCT, rcPaint) == 8);
static_assert(sizeof(BITMAP) == 24);
static_assert(offsetof(BITMAP, bmBits) == 20);
static_assert(sizeof(BITMAPINFO) == 44);
static_assert(sizeof(LOGFONTW) == 92);
static_assert(sizeof(BLENDFUNCTION) == 4);

static_assert(sizeof(ImageInfo) == 64);
static_assert(offsetof(ImageInfo, Xdpi) == 40);
static_assert(sizeof(BitmapData) == 24);
static_assert(sizeof(GPS_POSITION) == 344);

static_assert(sizeof(SMS_ADDRESS) == 516);
static_assert(offsetof(SMS_ADDRESS, ptsAddress) == 4);
static_assert(sizeof(TEXT_PROVIDER_SPECIFIC_DATA) == 164);
static_assert(offsetof(TEXT_PROVIDER_SPECIFIC_DATA, fMessageContainsEMSHeaders) == 156);

// Enumerations are 32-bit words (-fno-short-enums).
static_assert(sizeof(CEDEVICE_POWER_STATE) == 4);
static_assert(sizeof(InterpolationHint) == 4);
