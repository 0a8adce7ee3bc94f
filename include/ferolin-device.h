/* The device that the engine believes to run on, for hosts on Linux: libferolin-device. C99 and
 * C++.
 *
 * Folder, language, screen and serial ports are chosen before the engine is loaded. A program that
 * links libferolin has it loaded before its main function; one that chooses a folder of its own
 * links libferolin-device and loads the engine with dlopen("libferolin.so.0", RTLD_NOW).
 *
 * Texts are UTF-8 and zero-terminated; a null pointer counts as empty. Results are 1 for success
 * and 0 for failure unless said otherwise. */
#pragma once

#include "ferolin-types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Folder of the settings file and the tracks, made where it is missing. A folder "Pics" or "Wav" or
 * a file "lcd-u.ttf" in it takes the place of the installed pictures, sounds and display font. 0
 * when nothing can be written there, or when the engine is loaded already. Without this call the
 * folder is that in the environment's FEROLIN_FOLDER, or else libferolin in the user's data folder,
 * ~/.local/share. */
int ferolin_set_folder(const char* path);

/* Language of names and texts: "ENU" (English) or "RUS" (Russian). Without this call it is that of
 * the environment, English unless that is Russian. */
void ferolin_set_language(const char* abbreviation);

/* Makes a port such as "COM1" stand for a device such as "/dev/ttyUSB0" or a pseudo-terminal. An
 * empty device takes the port away. */
void ferolin_map_serial_port(const char* port, const char* device);

/* Resolution of the screen in dots per inch, which sets the size of letters; 96 without this call.
 */
void ferolin_set_resolution(int dpi);

/* Makes a window without a frame, in memory, in which the engine draws (SetRenderWindow) and which
 * it notifies (StartCallBack). Sizes are in pixels; 0 by 0 is enough for notifications. It belongs
 * to the thread that makes it. Null on failure. */
HWND ferolin_create_window(int width, int height);

/* To be called by the window's thread, after StopCallBack and SetRenderWindow(NULL). */
void ferolin_destroy_window(HWND window);

/* No notification has come within the time. */
#define FEROLIN_TIMED_OUT (-1)

/* Waits for the engine's next notification of the window, at most so long; a negative time has no
 * end. Returns the FerolinButton that was touched, FEROLIN_BUTTON_NONE (0) for a new position, or
 * FEROLIN_TIMED_OUT. To be called by the window's thread. */
int ferolin_wait(HWND window, int milliseconds);

/* Copies what the engine has drawn: `height` rows of `width` pixels from the top, each 0x00RRGGBB.
 * 0 when nothing was drawn yet or the window has another size. Any thread may call. */
int ferolin_copy_picture(HWND window, uint32_t* pixels, int width, int height);

#ifdef __cplusplus
}
#endif
