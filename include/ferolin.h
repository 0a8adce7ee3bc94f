// Ferolin: the engine of a GPS speedometer, as its host application sees it.
//
// The library is driven through the 59 plain functions below. Loading it (`LoadLibraryW`; on Linux
// `dlopen`) builds the engine and reads the settings file `TachyMo.ini` in the library's folder;
// unloading it (`FreeLibrary`, `dlclose`) stops everything, writes the track when that was asked
// for, writes the settings file and frees the engine. C99 and C++. On Linux ferolin-device.h has
// what belongs to the device: the folder, serial ports, windows.
//
// A host usually goes through these steps:
//   1. load the library and get the functions' addresses;
//   2. read its own saved choices (`GetIniFileValue`) and apply them: `SetComPortName`,
//      `SetComPortSpeed`, `SetUseGPSAPI`, `SetAlwaysTurnOn`, `SetWriteKML`, `SetLogFolder`,
//      `SetInvert...`, `SetCurRenderWidget`;
//   3. `SetRenderWindow` with the window to draw into, `GetWndMessageID` to recognise the
//      notification;
//   4. `StartCallBack` with the window that is to be notified;
//   5. on each notification read the sensors by index; forward stylus events of the render window;
//   6. `StopCallBack`, keep its choices with `SetIniFileValue`;
//   7. unload the library.
//
// Conventions that hold for all functions:
//   - They are called on one thread, the host's. None blocks, except that `StartCallBack`,
//     `StopCallBack`, `SetComPortName` and `SetUseGPSAPI` wait for the engine's threads to end (a
//     few hundred milliseconds).
//   - None fails hard. Without an engine (its memory could not be had) each returns the default
//     named with it; an index out of range gives 0 or does nothing.
//   - Text handed in is wide and zero-terminated; characters that the device's ANSI code page lacks
//     become '?'. Text handed out is 8-bit text in that code page (Russian: CP1251),
//     zero-terminated, written into a buffer of the host's whose size is given in bytes. The
//     library keeps no pointer of the host's and hands out none of its own.
//   - Flags are 32-bit integers: 0 is off, everything else is on; handed out they are 0 or 1 unless
//     said otherwise.
//   - Text results follow one of three rules:
//       fit:    the text is copied if it is shorter than the buffer, and its length returned; else
//               the buffer is left alone and 0 returned;
//       length: the text's length is returned in any case, and it is copied if it is shorter than
//               the buffer;
//       clear:  the buffer (if its size is above 0) is emptied first and then filled if the text
//               fits; no result.
#pragma once

#ifdef __linux__
#include "ferolin-types.h"
#else
#include <windows.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

#ifndef FEROLIN_API
#define FEROLIN_API
#endif

// ---- Numbers ------------------------------------------------------------------------------------

/// The sensors, by their index. A host may store choices by these numbers: they never change.
enum FerolinSensor {
  FEROLIN_SENSOR_GPS_STATUS = 0,       ///< "OK", or that there is no signal
  FEROLIN_SENSOR_SATELLITES_USED = 1,  ///< satellites that the position was computed from
  FEROLIN_SENSOR_CURRENT_TIME = 2,     ///< local time of the fix
  FEROLIN_SENSOR_FASTEST_100 = 3,      ///< shortest time over 100 m
  FEROLIN_SENSOR_FASTEST_402 = 4,      ///< shortest time over 402 m, a quarter of a mile
  FEROLIN_SENSOR_FASTEST_1000 = 5,     ///< shortest time over 1 km
  FEROLIN_SENSOR_DISTANCE = 6,         ///< length of the trip
  FEROLIN_SENSOR_ELAPSED = 7,          ///< time of the trip
  FEROLIN_SENSOR_AVERAGE_SPEED = 8,    ///< average speed of the trip
  FEROLIN_SENSOR_SPEED = 9,            ///< speed now
  FEROLIN_SENSOR_MAX_SPEED = 10,       ///< highest speed
  FEROLIN_SENSOR_ACCEL_10 = 11,        ///< shortest time from standstill to 10 km/h
  FEROLIN_SENSOR_ACCEL_30 = 12,        ///< to 30 km/h
  FEROLIN_SENSOR_ACCEL_60 = 13,        ///< to 60 km/h
  FEROLIN_SENSOR_ACCEL_100 = 14,       ///< to 100 km/h
  FEROLIN_SENSOR_ACCEL_150 = 15,       ///< to 150 km/h
  FEROLIN_SENSOR_ACCEL_200 = 16,       ///< to 200 km/h
  FEROLIN_SENSOR_LATITUDE = 17,        ///< degrees, minutes and seconds
  FEROLIN_SENSOR_LONGITUDE = 18,       ///< degrees, minutes and seconds
  FEROLIN_SENSOR_ALTITUDE = 19,        ///< metres above sea level
  FEROLIN_SENSOR_AZIMUTH = 20,         ///< course over ground, degrees from true north
  FEROLIN_SENSOR_HDOP = 21,            ///< horizontal dilution of precision
  FEROLIN_SENSOR_VDOP = 22,            ///< vertical dilution of precision
  FEROLIN_SENSOR_PDOP = 23,            ///< position dilution of precision
  FEROLIN_SENSOR_BATTERY_STATUS = 24,  ///< charge of the device's battery
  FEROLIN_SENSOR_FASTEST_500 = 25,     ///< shortest time over 500 m
  FEROLIN_SENSOR_FASTEST_10000 = 26,   ///< shortest time over 10 km
  FEROLIN_SENSOR_ACCEL_20 = 27,        ///< shortest time from standstill to 20 km/h
  FEROLIN_SENSOR_ACCEL_40 = 28,        ///< to 40 km/h
  FEROLIN_SENSOR_ACCEL_50 = 29,        ///< to 50 km/h
  FEROLIN_SENSOR_ACCEL_70 = 30,        ///< to 70 km/h
  FEROLIN_SENSOR_ACCEL_80 = 31,        ///< to 80 km/h
  FEROLIN_SENSOR_ACCEL_90 = 32,        ///< to 90 km/h
  FEROLIN_SENSOR_ACCEL_120 = 33,       ///< to 120 km/h
  FEROLIN_SENSOR_COUNT = 34
};

/// The views, by their index.
enum FerolinView {
  FEROLIN_VIEW_NONE = -1,              ///< nothing is drawn
  FEROLIN_VIEW_SPEEDOMETER = 0,        ///< a dial with the figures of the trip
  FEROLIN_VIEW_FULL_SCREEN_SPEED = 1,  ///< the speed in large figures
  FEROLIN_VIEW_SATELLITES = 2,         ///< the satellites in the sky and their signals
  FEROLIN_VIEW_PATH = 3,               ///< the path driven, with the figures of the trip
  FEROLIN_VIEW_SPEED_CHART = 4,        ///< the speed over the last minutes or hours
  FEROLIN_VIEW_COUNT = 5
};

/// What was touched in the current view: lParam of the notification. The host acts on 1 to 8; the
/// views that have the other buttons answer them themselves and tell the host as well.
enum FerolinButton {
  FEROLIN_BUTTON_NONE = 0,               ///< nothing was touched: a position was accepted
  FEROLIN_BUTTON_PREVIOUS_VIEW = 1,      ///< left arrow, or a swipe to the right
  FEROLIN_BUTTON_NEXT_VIEW = 2,          ///< right arrow, or a swipe to the left
  FEROLIN_BUTTON_RESET_ALL = 3,          ///< reset all sensors
  FEROLIN_BUTTON_SEND_SMS = 4,           ///< position report by SMS
  FEROLIN_BUTTON_OPTIONS = 5,            ///< the host's options
  FEROLIN_BUTTON_CLOSE = 6,              ///< end of the program
  FEROLIN_BUTTON_FLIP_HORIZONTALLY = 7,  ///< mirror the picture
  FEROLIN_BUTTON_ROTATE_SCREEN = 8,      ///< turn the picture by 90 degrees
  FEROLIN_BUTTON_ZOOM_IN = 9,            ///< show less of the path or the chart, larger
  FEROLIN_BUTTON_ZOOM_OUT = 10,          ///< show more, smaller
  FEROLIN_BUTTON_CENTER_POSITION = 11,   ///< current position to the centre
  FEROLIN_BUTTON_AUTOMATIC_ZOOM = 12     ///< the whole path in view
};

// ---- Start, stop and notification ---------------------------------------------------------------

/// Notifies `hostWindow` from now on and starts reading positions unless that is under way already.
/// Null stops, as `StopCallBack` does. Returns 1, or 0 when the reader could not be started or
/// there is no engine. A port that is not there is no error: nothing is read from it then.
FEROLIN_API int WINAPI StartCallBack(HWND hostWindow);

/// Stops notifications, then the reader, and returns when its threads have ended. Returns 1; 0
/// without an engine.
FEROLIN_API int WINAPI StopCallBack(void);

/// Number of the registered message "UpdateGPS". It is posted with both parameters 0 after every
/// accepted position, and with a `FerolinButton` in lParam when the current view was touched. 0
/// without an engine.
FEROLIN_API UINT WINAPI GetWndMessageID(void);

// ---- Position source ----------------------------------------------------------------------------

/// Serial port to read, such as "COM1", without a colon; cut at 259 bytes. A running reader is
/// restarted on it. Returns 1, or 0 when that restart failed or there is no engine.
FEROLIN_API int WINAPI SetComPortName(LPCWSTR name);

/// Name set last, empty at start. Length rule; "" and 0 without an engine.
FEROLIN_API int WINAPI GetComPortName(char* buffer, int size);

/// Baud rate for the port: 300, 2400, 4800, 9600, 19200, 38400, 57600 or 115200. Any other value
/// leaves the port's own rate. Takes effect at the next start of the reader.
FEROLIN_API void WINAPI SetComPortSpeed(int baudRate);

/// Baud rate set last; -9999 (leave the port's own) at start and without an engine.
FEROLIN_API int WINAPI GetComPortSpeed(void);

/// Chooses the source: the platform's GPS API (1, the default) or the serial port (0). A running
/// reader is restarted. Returns 1, or 0 when that restart failed or there is no engine.
FEROLIN_API int WINAPI SetUseGPSAPI(DWORD use);

/// 1 when the GPS API is the source, else 0. 0 without an engine.
FEROLIN_API int WINAPI IsUseGPSAPI(void);

// ---- Sensors: the named read-outs ---------------------------------------------------------------

/// Number of sensors, FEROLIN_SENSOR_COUNT; 0 without an engine.
FEROLIN_API int WINAPI GetSensorsCount(void);

/// Name of a sensor in the user's language. Fit rule; an unknown index gives 0. "" and 0 without an
/// engine.
FEROLIN_API int WINAPI GetSensorName(int index, char* buffer, int size);

/// Value text of a sensor, such as "54.3 km/h". Before the first update it is that of a fix without
/// a position: "No signal", "0", "N/A", "0:00:00", ... or empty. Returns its length. Mind: it is
/// copied when the sensor's *name* is shorter than `size`, however long the value is. A buffer of
/// 256 bytes holds every name and value. An unknown index gives 0. "" and 0 without an engine.
FEROLIN_API int WINAPI GetSensorValue(int index, char* buffer, int size);

/// Starts a sensor afresh: sensors of the current fix and the maximum become empty until the next
/// update, trip sensors start from zero and keep their text until then. Returns 1, or 0 for an
/// unknown index or without an engine.
FEROLIN_API int WINAPI ResetSensorValue(int index);

/// 1 when the sensor has a state worth keeping between runs (trip figures and records), else 0.
FEROLIN_API int WINAPI IsSensorSaveable(int index);

/// State of a saveable sensor as text, to be given back with `SetSensorRegistryString` in a later
/// run. The buffer must hold 256 bytes, whatever `size` says: a state is never cut short. Returns
/// the length of the text then in the buffer: a sensor that is not saveable leaves the buffer as it
/// was. An unknown index gives 0. "" and 0 without an engine.
FEROLIN_API int WINAPI GetSensorRegistryString(int index, char* buffer, int size);

/// Gives a saveable sensor its state back; its value shows it at once. Returns 1 when the text was
/// taken, and 0 when it holds no state above zero, the sensor keeps none, the index is unknown, or
/// there is no engine. Cut at 255 bytes.
FEROLIN_API int WINAPI SetSensorRegistryString(int index, LPCWSTR text);

// ---- Views and drawing --------------------------------------------------------------------------

/// Number of views, FEROLIN_VIEW_COUNT; 0 without an engine.
FEROLIN_API int WINAPI GetWidgetsCount(void);

/// Name of a view in the user's language. Fit rule; an unknown index gives 0. "" and 0 without an
/// engine.
FEROLIN_API int WINAPI GetWidgetName(int index, char* buffer, int size);

/// Index of the view being drawn; -1 (none) at start and without an engine.
FEROLIN_API int WINAPI GetCurRenderWidget(void);

/// Chooses the view to draw. Not checked: an index that names no view draws nothing. The next
/// update draws it.
FEROLIN_API void WINAPI SetCurRenderWidget(int index);

/// Window drawn into; null at start and without an engine.
FEROLIN_API HWND WINAPI GetRenderWindow(void);

/// Chooses the window to draw into. The next update draws it. Waits for a frame that is being
/// drawn: nothing is drawn into the window set before once this has returned. Set null before the
/// window is destroyed.
FEROLIN_API void WINAPI SetRenderWindow(HWND window);

/// Whether the picture is flipped top to bottom. These eight need no engine. Setters keep the low
/// byte of the flag and take effect with the next frame; getters return that byte.
FEROLIN_API int WINAPI GetInvertVert(void);
FEROLIN_API void WINAPI SetInvertVert(int flag);
/// Whether the picture is flipped left to right (for a reflection in the windscreen).
FEROLIN_API int WINAPI GetInvertHorz(void);
FEROLIN_API void WINAPI SetInvertHorz(int flag);
/// Whether every colour is inverted.
FEROLIN_API int WINAPI GetInvertColor(void);
FEROLIN_API void WINAPI SetInvertColor(int flag);
/// Whether the picture is turned by 90 degrees clockwise.
FEROLIN_API int WINAPI GetInvertOrient(void);
FEROLIN_API void WINAPI SetInvertOrient(int flag);

/// Accepted and ignored.
FEROLIN_API void WINAPI OnClick(HWND window, int x, int y);

/// Shows or hides the button bars of the current view.
FEROLIN_API void WINAPI OnDoubleClick(void);

/// Stylus events of the render window, in pixels of its client area. They act on the current view:
/// buttons and horizontal swipes post the notification with a code (see `GetWndMessageID`).
FEROLIN_API void WINAPI OnMouseDown(HWND window, int x, int y);
FEROLIN_API void WINAPI OnMouseMove(HWND window, int x, int y);
FEROLIN_API void WINAPI OnMouseUp(HWND window, int x, int y);

// ---- Options ------------------------------------------------------------------------------------

/// Whether the backlight is kept on and the device awake while positions arrive. Off at start, 0
/// without an engine.
FEROLIN_API int WINAPI IsAlwaysTurnOn(void);
/// Takes effect at the next update.
FEROLIN_API void WINAPI SetAlwaysTurnOn(DWORD flag);

/// Whether the route is written as a KML file when the library is unloaded. 0 at start and without
/// an engine; otherwise the byte set last.
FEROLIN_API int WINAPI IsWriteKML(void);
/// Keeps the low byte of the flag.
FEROLIN_API void WINAPI SetWriteKML(int flag);

/// Folder for the track files; the library's folder followed by "\Tracks" unless another was set.
/// Clear rule.
FEROLIN_API void WINAPI GetLogFolder(char* buffer, int size);
/// An empty path is ignored; a longer one than 259 characters is cut.
FEROLIN_API void WINAPI SetLogFolder(LPCWSTR path);

/// 1 when names and texts are Russian, 0 when they are English or there is no engine. Decided once
/// per load.
FEROLIN_API int WINAPI IsRussianLocale(void);

// ---- SMS reports --------------------------------------------------------------------------------

/// Sends one position report to every recipient now, and returns when the sibling library has taken
/// it.
FEROLIN_API void WINAPI SendSMS(void);
/// Whether reports are sent automatically; 0 without an engine.
FEROLIN_API int WINAPI IsSMSEnabled(void);
/// Whether automatic reports are sent only when the position has changed; 0 without an engine.
FEROLIN_API int WINAPI IsSMSSendIfChanged(void);
/// Smallest gap in minutes between two successive positions that sends an automatic report; 0
/// without an engine.
FEROLIN_API int WINAPI GetSMSInterval(void);
/// Template of the message. Clear rule.
FEROLIN_API void WINAPI GetSMSText(char* buffer, int size);
/// Recipients' numbers, joined with ",". Clear rule.
FEROLIN_API void WINAPI GetSMSAddress(char* buffer, int size);
/// Sets recipients (separated by ",", blanks around them trimmed), message template, interval in
/// minutes (0 sends nothing automatically) and the two flags. Kept in the settings file at unload.
/// Placeholders of the template: %Latitude%, %Longitude%, %Altitude%, %Speed%, %Azimuth%, %Time%,
/// %GoogleMaps%.
FEROLIN_API void WINAPI SetSMSParams(LPCWSTR address, LPCWSTR text, int interval, int enabled,
                                     int sendIfChanged);
/// 1 when the library that sends messages is there, else 0.
FEROLIN_API int WINAPI IsSMSExist(void);

// ---- Speed events -------------------------------------------------------------------------------

/// Number of speed limits (3 at start); 0 without an engine.
FEROLIN_API int WINAPI GetSpeedEventsCount(void);
/// Whether a sound tells that the vehicle has stopped; 0 without an engine.
FEROLIN_API int WINAPI GetBeepOnZero(void);
FEROLIN_API void WINAPI SetBeepOnZero(int flag);
/// Whether the limit has its sounds; 0 for an unknown index or without an engine.
FEROLIN_API int WINAPI GetUseEventSound(int index);
/// The limit in km/h; 0 for an unknown index or without an engine.
FEROLIN_API int WINAPI GetEventSpeedLimit(int index);
/// Width in km/h of the band above the limit in which the warning repeats; 0 for an unknown index
/// or without an engine.
FEROLIN_API int WINAPI GetEventSpeedInter(int index);
/// Changes a limit. An index not below the count appends a new one, a negative index does nothing.
/// Limits beyond the third last until the library is unloaded.
FEROLIN_API void WINAPI SetSpeedEvent(int index, int limit, int inter, int useSound);

// ---- Settings file ------------------------------------------------------------------------------

/// Value of the first entry with exactly this section and key; a missing entry gives "". Fit rule.
/// `fileName` is not used: this always means the library's own settings file. Without an engine: 0
/// and the buffer left alone.
FEROLIN_API int WINAPI GetIniFileValue(char* buffer, int size, LPCWSTR section, LPCWSTR key,
                                       LPCWSTR fileName);
/// Sets or adds an entry; it reaches the file when the library is unloaded. `fileName` is not used.
/// Returns 1; 0 without an engine.
FEROLIN_API int WINAPI SetIniFileValue(LPCWSTR section, LPCWSTR key, LPCWSTR value,
                                       LPCWSTR fileName);

#ifdef __cplusplus
}
#endif
