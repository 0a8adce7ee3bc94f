"""Runs the same program on two homes and compares what they print, byte for byte.

usage: same_results_test.py <command> -- <other command>
"""
import difflib
import subprocess
import sys

separator = sys.argv.index("--")
outputs = []
for command in (sys.argv[1:separator], sys.argv[separator + 1:]):
    result = subprocess.run(command, stdout=subprocess.PIPE, check=False)
    if result.returncode != 0:
        sys.exit(f"{command[0]} ends with {result.returncode}")
    outputs.append(result.stdout)

if outputs[0] != outputs[1]:
    lines = [output.decode("cp1251").splitlines(keepends=True) for output in outputs]
    sys.stdout.writelines(list(difflib.unified_diff(*lines, "one", "other"))[:100])
    sys.exit("the homes differ")
if len(outputs[0]) < 100_000:
    sys.exit("there was next to nothing to compare")
print(f"{len(outputs[0])} bytes are the same")
