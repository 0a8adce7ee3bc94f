"""Takes the drive on a device whose maker left out what can be left out: COM, blending, sound, power manager, battery.
All read-outs, files and messages have to be those of a complete device, but for the battery; each view is drawn,
without pictures; there is no sound.

usage: trimmed_system_test.py <command on a complete device> -- <command on the device to trim>
"""
import os
import re
import subprocess
import sys

LACKING = "ole32.dll AlphaBlend GetSystemPowerStatusEx PlaySoundW ReleasePowerRequirement SetPowerRequirement"


def drive(command, lacking):
    environment = os.environ | {"FEROLIN_DEVICE_LACKS": lacking}
    result = subprocess.run(command, capture_output=True, env=environment, check=False)
    if result.returncode != 0:
        sys.exit(f"{command[0]} ends with {result.returncode}: {result.stderr.decode('utf-8', 'replace')}")
    return result.stdout.decode("cp1251").splitlines(), result.stderr.decode("utf-8", "replace")


def refused(messages):
    return set(re.findall(r"^The device lacks (\S+)$", messages, re.MULTILINE))


separator = sys.argv.index("--")
complete, _ = drive(sys.argv[1:separator], "")
trimmed, messages = drive(sys.argv[separator + 1:], LACKING)

if refused(messages) != set(LACKING.split()):
    sys.exit(f"only {refused(messages)} was asked for")
if not any(line.startswith("sound ") for line in complete) or any(line.startswith("sound ") for line in trimmed):
    sys.exit("sounds, or none to leave out")
complete = [line for line in complete if not line.startswith("sound ")]
if len(complete) != len(trimmed):
    sys.exit(f"{len(complete)} lines on a complete device, {len(trimmed)} here")

pictures = batteries = 0
for before, after in zip(complete, trimmed):
    if before.startswith("picture "):
        # The same view in the same size.
        pictures += before.rpartition(",")[0] == after.rpartition(",")[0] and before != after
    elif before != after:
        if not (before.endswith("%") and after == before.rpartition(": ")[0] + ": N/A"):
            sys.exit(f"{after!r} in place of {before!r}")
        batteries += 1
print(f"{len(trimmed)} lines, {pictures} pictures without icons, {batteries} times no battery")
if pictures < 40 or batteries != 2 * 240:
    sys.exit("too few pictures or batteries differ")
