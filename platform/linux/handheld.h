// Properties of the handheld that the Linux home simulates. Hosts set them before they load the
// engine; tests also read here which calls the device has received. Every function may be called
// from any thread.
#pragma once

#include <pm.h>
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace handheld {

// Language.

/// Three-letter abbreviation of the user's language ("ENU", "RUS"). At start taken from LC_ALL,
/// LC_MESSAGES or LANG: "RUS" for Russian, else "ENU". Also chooses the ANSI code page that goes
/// with it (1251 or 1252).
void SetLanguage(const char* abbreviation);

/// Makes GetLocaleInfoW fail (true) or answer again (false).
void SetLocaleFailing(bool failing);

/// ANSI code page: 1251 or 1252.
void SetCodePage(UINT codePage);

/// Text in the device's ANSI code page as UTF-8, and back (characters that it lacks become '?').
std::string Utf8FromAnsi(const std::string& ansi);
std::string AnsiFromUtf8(const std::string& utf8);
/// UTF-8 as the device's wide text and back; unpaired surrogates become U+FFFD.
std::u16string WideFromUtf8(const std::string& utf8);
std::string Utf8FromWide(const std::u16string& wide);

// Clock.

/// Sets the device's clock to this moment (UTC); it runs on from there at the time rate. Until then
/// it shows the machine's time. Fields that name no moment change nothing.
void SetClock(const SYSTEMTIME& utc);

/// Stops the clock (true) so that it stands at the moment last set or reached, or lets it run
/// (false). The tick count and Sleep go on either way.
void SetClockStopped(bool stopped);

/// How many times faster than real time the device lives: its clock, its tick count and every
/// Sleep. 1 at start. Must be above 0; 1000 makes a Sleep of 100 ms last 0.1 ms.
void SetTimeRate(double rate);

/// POSIX time zone such as "UTC0" or "MSK-3", or a name such as "Europe/Moscow"; UTC if it is
/// neither. The process's zone at start. Sets TZ for the whole process: hosts call it before other
/// threads read the environment. As on the device, FileTimeToLocalFileTime and its inverse use the
/// offset that holds at the moment the device's clock shows, not at the moment converted.
void SetTimeZone(const char* zone);

// Power.

/// Makes GetSystemPowerStatusEx return these values from now on. Until then it reads the machine's
/// own battery, at most every two seconds; without one the flag is 128 and the percentage 255.
void SetBattery(BYTE flag, BYTE percent);
void SetBatteryFailing(bool failing);
/// Makes SetPowerRequirement fail (true) or succeed (false).
void SetPowerRequirementFailing(bool failing);
/// Makes ReleasePowerRequirement fail (true) or succeed (false).
void SetPowerReleaseFailing(bool failing);
struct PowerRequest {
  std::u16string device;
  CEDEVICE_POWER_STATE state;
};
/// Devices and states of all calls of SetPowerRequirement so far, failed ones included, in order:
/// the latest 65536.
std::vector<PowerRequest> PowerRequests();
/// Number of power requirements held now, and of all taken so far. While one is held, logind, where
/// present, is asked to keep the machine from idling.
int PowerRequirementsHeld();
int PowerRequirementsTaken();
/// Calls of SystemIdleTimerReset so far.
int IdleTimerResets();

// Serial ports.

/// Makes a port name such as "COM1:" open this device (a path such as /dev/ttyUSB0 or a
/// pseudo-terminal's slave). An empty path removes the port. A device that disappears while its
/// port is open is looked for again about once a second, except directly under /dev/pts, where the
/// same path soon means another terminal.
void MapSerialPort(const std::string& port, const std::string& devicePath);

/// Shows `observer` the bytes of each ReadFile from a serial port, on the reading thread, before the
/// call returns: it must not wait, nor read or observe ports itself. An empty function ends that;
/// the observer before is not running any more when this returns.
void ObserveSerialReads(std::function<void(std::string_view)> observer);

/// Puts up to `size` bytes into `buffer`, waits for the first one, and returns their number; 0 when
/// no more will come.
using PortReader = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Makes a port name such as "COM1:" open a port in memory. ReadFile calls `reader` on its own
/// thread, so a call means that its caller is done with the bytes of the call before; after a 0 it
/// waits until the port is closed. Closing the port does not end a call of `reader`: the host makes
/// it return before. The port takes and drops all that is written, and has no baud rate. An empty
/// reader removes the port.
void FeedSerialPort(const std::string& port, PortReader reader);

// Modules.

/// Pretended folder of loaded libraries (a Linux path): GetModuleFileNameW returns this folder and
/// the library's file name. Empty at start, which means the library's real folder.
void SetModuleDirectory(const std::string& path);
/// Folder in which LoadLibraryW looks first for libraries named without a path (a Linux path);
/// empty for none. The folder of the running program is searched next, then that of installed
/// libraries; the module directory never is.
void SetLibraryDirectory(const std::string& path);

/// Folder of pictures, sounds and the display font that belong to the libraries: beside them, or
/// where they were installed to. Empty when they are in neither.
std::string SharedFolder();
/// Folder of a program's data for the user who runs it, such as ~/.local/share/ferolin. Empty when
/// the environment names no folder.
std::string DataFolder(const std::string& program);
/// Makes an existing folder (a Linux path) stand for the one in which the handheld's program lies:
/// loaded libraries seem to lie there, and they see it as "\Ferolin". Pictures, sounds or a display
/// font that it lacks are those of the shared folder.
void SetProgramFolder(const std::string& path);

// Files.

/// Makes a device path such as "\\Ferolin" stand for a Linux file or folder with all that lies
/// below. An engine in a mapped folder sees a short plain path, whatever the real one is like. An
/// empty Linux path removes the mapping. Linux paths are absolute and do not end in a slash.
void MapPath(const std::u16string& devicePath, const std::string& linuxPath);

/// A Linux path in the device's spelling (mapped, or with backslashes) and back. File names are
/// looked up without regard to case.
std::u16string DevicePath(const std::string& path);
std::string LinuxPath(const std::u16string& devicePath);

/// Linux paths of the pictures, fonts and sounds that were missing or damaged when they were asked
/// for, each once, in order.
std::vector<std::string> UnreadableFiles();

/// True once text was to be drawn in a font that is neither added nor replaced by an installed one:
/// nothing is drawn of it.
bool LacksFonts();

// Screen.

/// Size in pixels and resolution in dots per inch of the screen; windows created later with
/// CW_USEDEFAULT fill it. 240 x 320 at 96 dpi at start.
void SetScreen(int width, int height, int dpi);

/// Whether what is drawn into bitmaps of 96 dpi is drawn once more, smoothly, in the screen's own
/// pixels, from 1.5 x 96 dpi on, and shown in place of the enlarged bitmap. Off at start. Bits that
/// a program changes itself are not shown once it has drawn into the bitmap by calls.
void SetFineDrawing(bool isWanted);

/// Pixels of a window: `height` rows of `width` pixels from the top, each 0x00RRGGBB.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> rows;
};
/// Copy of the window's pixels; empty when nothing was drawn yet or the window is gone.
Pixels WindowPixels(HWND window);
/// Changes whenever something is drawn into the window; 0 before the first drawing.
std::uint64_t WindowPixelsVersion(HWND window);

// Messages.

/// Messages that PostMessageW has delivered to a window so far, in order, across all threads: the
/// latest 65536.
std::vector<MSG> MessagesPosted();
void ForgetMessagesPosted();

// Sounds.

struct Sound {
  std::u16string path;
  DWORD flags;
};
/// Sounds that PlaySoundW has accepted so far, in order: the latest 65536. Missing files are
/// refused.
std::vector<Sound> SoundsStarted();
void ForgetSoundsStarted();

// Resources.

/// Number of open handles (files, ports, searches, threads, power requirements).
int HandlesAlive();

/// Number of drawing objects (device contexts, bitmaps, pens, brushes, fonts, regions), without the
/// system's own.
int GdiObjectsAlive();

}  // namespace handheld
