/* Uses each type of the headers for hosts. They bring along what they need. */
#include <ferolin.h>
#include <ferolin-device.h>

int use_headers(const WCHAR* port, HWND window, char* buffer, int size) {
  DWORD uses_gps_api = 0;
  UINT message = GetWndMessageID();
  uint32_t pixel = 0;
  SetUseGPSAPI(uses_gps_api);
  SetComPortName(port);
  return (int)message + GetSensorValue(FEROLIN_SENSOR_SPEED, buffer, size) +
         ferolin_copy_picture(window, &pixel, 1, 1);
}
