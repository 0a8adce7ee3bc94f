"""A folder that forgets at a power cut what was not synced."""

import os
import shutil
import subprocess

LIBRARY = os.environ.get("FORGETFUL_DISK_LIBRARY")


class ForgetfulDisk:
    """Programs started with `environment` write to `folder`; `cut_power` makes it forget."""

    def __init__(self, folder, memory):
        self.folder = folder
        self.memory = memory
        self.environment = {"LD_PRELOAD": LIBRARY, "FORGETFUL_DISK": memory}
        self.remember_all()

    def remember_all(self):
        shutil.rmtree(self.memory, ignore_errors=True)
        os.mkdir(self.memory)
        paths = [self.folder]
        for parent, folders, files in os.walk(self.folder):
            paths += [os.path.join(parent, name) for name in folders + files
                      if not os.path.islink(os.path.join(parent, name))]
        subprocess.run(["sync", *paths], env={**os.environ, **self.environment}, check=True)

    def cut_power(self):
        """Puts the folder back to what was synced. No program may use it."""
        self.restore(self.folder)
        self.remember_all()

    def key_of(self, path):
        form = subprocess.run(["stat", "--format", "%i %w %.9W", path], capture_output=True,
                              encoding="utf-8", check=True).stdout.split()
        seconds, _, fraction = form[-1].partition(".")
        return "%s-%s-%d" % (form[0], seconds, int(fraction))

    def recall(self, key):
        """What was synced; None when nothing ever was."""
        try:
            with open(os.path.join(self.memory, key), "rb") as file:
                return file.read()
        except FileNotFoundError:
            return None

    def restore(self, folder):
        listed = self.recall(self.key_of(folder)) or b""
        names = {os.fsdecode(name): key.decode() for key, _, name in
                 (line.partition(b" ") for line in listed.splitlines())}
        there = {name: self.key_of(os.path.join(folder, name)) for name in os.listdir(folder)}
        # Names that were given to other files or taken away come back with their old content.
        for name, key in there.items():
            path = os.path.join(folder, name)
            if names.get(name) != key:
                shutil.rmtree(path) if is_folder(path) else os.remove(path)
        for name, key in names.items():
            path = os.path.join(folder, name)
            if is_folder(path):
                self.restore(path)
            elif not os.path.islink(path):
                with open(path, "wb") as file:
                    file.write(self.recall(key) or b"")


def is_folder(path):
    return os.path.isdir(path) and not os.path.islink(path)
