"""Runs a program under qemu with the counting plugin and fails when the library read or wrote a word at an address
that an ARMv4T processor would round down.

usage: alignment_test.py <qemu command with plugin>
"""
import re
import subprocess
import sys

result = subprocess.run(sys.argv[1:], capture_output=True, check=False)
messages = result.stderr.decode("utf-8", "replace")
if result.returncode != 0:
    sys.exit(messages)
misaligned = re.findall(r"^misaligned .*$", messages, re.MULTILINE)
if misaligned:
    sys.exit("\n".join(misaligned[:20]))
accesses = int(re.search(r"^accesses (\d+)$", messages, re.MULTILINE)[1])
if accesses < 1_000_000:
    sys.exit(f"only {accesses} accesses were looked at")
print(f"{accesses} accesses, all aligned")
