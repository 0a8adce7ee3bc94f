/* Prints the speed after each of the first ten positions that a receiver sends.
 *
 * usage: small-host [DEVICE]      /dev/ttyUSB0 unless told otherwise
 *
 * The program links the engine, which is there when main begins. */

#include <ferolin-device.h>
#include <ferolin.h>
#include <stdio.h>

int main(int argc, char** argv) {
  HWND window;
  int updates = 0;

  if (GetSensorsCount() == 0) {
    fprintf(stderr, "there is no engine\n");
    return 1;
  }
  ferolin_map_serial_port("COM1", argc > 1 ? argv[1] : "/dev/ttyUSB0");
  window = ferolin_create_window(0, 0);
  SetUseGPSAPI(0);
  SetComPortName(TEXT("COM1"));
  SetComPortSpeed(4800);
  if (window == NULL || !StartCallBack(window)) {
    fprintf(stderr, "the engine does not start\n");
    return 1;
  }
  while (updates < 10) {
    if (ferolin_wait(window, -1) == FEROLIN_BUTTON_NONE) {
      char name[256];
      char value[256];
      GetSensorName(FEROLIN_SENSOR_SPEED, name, sizeof name);
      GetSensorValue(FEROLIN_SENSOR_SPEED, value, sizeof value);
      printf("%s: %s\n", name, value);
      fflush(stdout);
      ++updates;
    }
  }
  StopCallBack();
  ferolin_destroy_window(window);
  return 0;
}
