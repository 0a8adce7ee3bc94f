"""Counts the ARM instructions that Ferolin.exe executes to draw each page at 240 x 320. Work done inside the device's
own libraries, such as drawing texts, is not in them.

usage: page_instructions_test.py <qemu command with plugin>
"""
import re
import subprocess
import sys

MOST = 6_000_000
LEAST = 100_000  # anything less was no page
PAGES = 18

result = subprocess.run(sys.argv[1:], capture_output=True, encoding="utf-8", check=False)
if result.returncode != 0:
    sys.exit(result.stdout + result.stderr)
names = dict(re.findall(r"^window (\d+): (.*)$", result.stdout, re.MULTILINE))
counts = {names[window]: int(count)
          for window, count in re.findall(r"^counted (\d+) (\d+) 1$", result.stderr, re.MULTILINE)}
for name, count in counts.items():
    print(f"| {name} | {count:,} |")
if len(counts) < PAGES:
    sys.exit(f"only {len(counts)} pages were counted")
wrong = {name: count for name, count in counts.items() if not LEAST < count < MOST}
if wrong:
    sys.exit(f"outside of {LEAST:,} to {MOST:,}: {wrong}")
