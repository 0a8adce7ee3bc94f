"""Compares the pages of two homes without their texts: runs PageShapes in both.

usage: same_pages_test.py <command> -- <other command>
"""
import subprocess
import sys

LEAST_PAGES = 90


def pages(command):
    result = subprocess.run(command, stdout=subprocess.PIPE, check=False)
    if result.returncode != 0:
        sys.stdout.buffer.write(result.stdout)
        sys.exit(f"{command[0]} ends with {result.returncode}")
    return [line for line in result.stdout.decode().splitlines() if line.startswith("page ")]


separator = sys.argv.index("--")
one = pages(sys.argv[1:separator])
other = pages(sys.argv[separator + 1:])
different = [f"{index}: {pair[0]} and {pair[1]}" for index, pair in enumerate(zip(one, other)) if pair[0] != pair[1]]
if different or len(one) != len(other):
    sys.exit("\n".join([f"{len(one)} and {len(other)} pages, {len(different)} of them differ", *different]))
if len(one) < LEAST_PAGES:
    sys.exit(f"only {len(one)} pages")
print(f"{len(one)} pages are the same")
