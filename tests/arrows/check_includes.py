"""Checks every include of the sources against what their folders may use.

usage: check_includes.py <project> <declarations>

The declarations hold a line for each folder, "folder: used used ...". An include is looked up as the
compiler would: beside the file, then in the roots of the project. What is found in none of them is
a header of the system or of a library.
"""
import pathlib
import re
import sys

PARTS = ("src", "app", "host", "siblings", "platform", "include")
ROOTS = ("src", "include", "platform/linux", "platform/api", "platform/shared", "platform/windows",
         "siblings", "host", "app", ".")
INCLUDE = re.compile(r'^\s*#\s*include\s+["<]([^">]+)[">]')


def read_declarations(path):
    uses = {}
    for line in pathlib.Path(path).read_text().splitlines():
        folder, _, used = line.partition(":")
        uses[folder] = set(used.split())
    return uses


def find(project, source, name):
    """The project's file that an include of `source` means, relative to the project, or None."""
    for folder in (source.parent, *(project / root for root in ROOTS)):
        candidate = (folder / name).resolve()
        if candidate.is_file() and candidate.is_relative_to(project):
            return candidate.relative_to(project)
    return None


def wrong_arrows(project, uses):
    """Yields a text for each include, and each folder with sources, that was not declared."""
    project = project.resolve()
    sources = [path for part in PARTS for pattern in ("*.h", "*.cpp")
               for path in (project / part).rglob(pattern)]
    for source in sorted(sources):
        place = source.relative_to(project)
        folder = place.parent.as_posix()
        if folder not in uses:
            yield f"{place}: its folder {folder} is not declared"
            continue
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            found = find(project, source, match[1]) if match else None
            if found is None:
                continue
            target = found.parent.as_posix()
            if target != folder and target not in uses[folder]:
                yield f"{place}:{number}: {folder} may not use {target} ({match[1]})"


def main():
    project, declarations = sys.argv[1:]
    wrong = list(wrong_arrows(pathlib.Path(project), read_declarations(declarations)))
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
