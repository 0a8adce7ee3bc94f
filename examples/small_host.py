#!/usr/bin/env python3
"""Prints the speed after each of the first ten positions that a receiver sends.

usage: small_host.py [DEVICE]      /dev/ttyUSB0 unless told otherwise
"""
import ctypes
import os
import sys

SENSOR_SPEED = 9
NEW_POSITION = 0


def wide(text):
    """Text as the engine takes it: UTF-16 with a zero at its end."""
    return (text + "\0").encode("utf-16-le")


def sensor_text(function, index):
    buffer = ctypes.create_string_buffer(256)
    function(index, buffer, len(buffer))
    return buffer.value.decode("cp1252")


def main():
    device = ctypes.CDLL("libferolin-device.so.0")
    device.ferolin_create_window.restype = ctypes.c_void_p
    # In a folder of this program's own. The engine reads its settings while it is loaded.
    device.ferolin_set_folder(os.path.expanduser("~/.local/share/small-host").encode())
    device.ferolin_map_serial_port(b"COM1", (sys.argv[1:] or ["/dev/ttyUSB0"])[0].encode())
    device.ferolin_set_language(b"ENU")
    engine = ctypes.CDLL("libferolin.so.0")

    window = ctypes.c_void_p(device.ferolin_create_window(0, 0))
    engine.SetUseGPSAPI(0)
    engine.SetComPortName(wide("COM1"))
    engine.SetComPortSpeed(4800)
    if not engine.StartCallBack(window):
        sys.exit("the engine does not start")
    updates = 0
    while updates < 10:
        # A limit, so that Ctrl-C is heard.
        if device.ferolin_wait(window, 500) == NEW_POSITION:
            print(sensor_text(engine.GetSensorName, SENSOR_SPEED) + ": " +
                  sensor_text(engine.GetSensorValue, SENSOR_SPEED), flush=True)
            updates += 1
    engine.StopCallBack()
    device.ferolin_destroy_window(window)


if __name__ == "__main__":
    main()
