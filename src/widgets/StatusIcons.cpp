#include "widgets/StatusIcons.h"

#include <algorithm>

#include "render/Canvas.h"

namespace ferolin {

namespace {

constexpr BYTE CHARGING_ALPHA = 192;
constexpr std::size_t CHARGING = 5;

constexpr const WCHAR* GPS_FILES[] = {
    TEXT("\\Pics\\GPS-0.png"), TEXT("\\Pics\\GPS-1.png"), TEXT("\\Pics\\GPS-2.png"),
    TEXT("\\Pics\\GPS-3.png"), TEXT("\\Pics\\GPS-4.png"), TEXT("\\Pics\\GPS-5.png"),
};
constexpr const WCHAR* BATTERY_FILES[] = {
    TEXT("\\Pics\\Bat-0.png"),  TEXT("\\Pics\\Bat-25.png"),  TEXT("\\Pics\\Bat-50.png"),
    TEXT("\\Pics\\Bat-75.png"), TEXT("\\Pics\\Bat-100.png"), TEXT("\\Pics\\BatCharging.png"),
};

template <std::size_t N>
void LoadMissing(std::array<std::unique_ptr<Picture>, N>& icons, const WCHAR* const (&files)[N],
                 const WideString& moduleDir) {
  for (std::size_t index = 0; index < N; ++index) {
    if (icons[index] == nullptr) {
      icons[index] = LoadPicture(moduleDir + files[index]);
    }
  }
}

void DrawIcon(HDC dc, const Picture& icon, const RECT& rect, StatusIcons::Style style) {
  if (style == StatusIcons::Style::OPAQUE_ICONS) {
    icon.Draw(dc, rect);
  } else {
    icon.DrawBlended(dc, rect, OPAQUE_ALPHA);
  }
}

}  // namespace

std::size_t ReceptionLevel(int satellites) {
  return static_cast<std::size_t>(std::clamp((satellites - 1) / 2, 0, 5));
}

std::size_t BatteryLevel(BYTE percent) {
  return std::min<std::size_t>(percent / 20, 4);
}

void StatusIcons::Load(const WideString& moduleDir) {
  LoadMissing(gps, GPS_FILES, moduleDir);
  LoadMissing(battery, BATTERY_FILES, moduleDir);
}

StatusIcons::Places StatusIcons::Draw(Canvas& canvas, int satellites, Style style) const {
  const HDC dc = canvas.GetDrawingDC();
  RECT gpsRect = {};
  if (const auto& icon = gps[ReceptionLevel(satellites)]; icon != nullptr) {
    const SIZE size = icon->GetSize();
    gpsRect = {0, 0, size.cx, size.cy};
    DrawIcon(dc, *icon, gpsRect, style);
  }
  Places places = DrawBattery(dc, canvas.GetFrameRect(), style);
  places.gps = gpsRect;
  return places;
}

StatusIcons::Places StatusIcons::DrawBattery(HDC dc, const RECT& frame, Style style) const {
  Places places = {{}, {0, 0, frame.right, 0}, frame.right};
  SYSTEM_POWER_STATUS_EX status = {};
  if (!GetSystemPowerStatusEx(&status, TRUE)) {
    return places;
  }
  RECT& rect = places.battery;
  if (const auto& icon = battery[BatteryLevel(status.BatteryLifePercent)]; icon != nullptr) {
    const SIZE size = icon->GetSize();
    rect = {frame.right - size.cx, 0, frame.right, size.cy};
    places.gapRight = rect.left;
    DrawIcon(dc, *icon, rect, style);
  }
  if (const auto& sign = battery[CHARGING];
      sign != nullptr && (status.BatteryFlag & BATTERY_FLAG_CHARGING) != 0) {
    const SIZE size = sign->GetSize();
    const LONG left = (rect.right - size.cx + rect.left) / 2;
    const LONG top = (rect.bottom - size.cy + rect.top) / 2;
    sign->DrawBlended(dc, {left, top, left + size.cx, top + size.cy}, CHARGING_ALPHA);
  }
  return places;
}

}  // namespace ferolin
