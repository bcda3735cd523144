"""What Linux says of the processes of a Wine session: processor time, memory, descriptors."""

import os
import pathlib

PROC = pathlib.Path("/proc")


class Process:
    def __init__(self, pid):
        self.pid = pid
        self.folder = PROC / str(pid)

    def threads(self):
        """Nanoseconds of processor time by thread; the thread with the process's number is its first."""
        times = {}
        for task in (self.folder / "task").iterdir():
            try:
                times[int(task.name)] = int((task / "schedstat").read_text().split()[0])
            except FileNotFoundError:  # has ended meanwhile
                pass
        return times

    def private_kib(self):
        """Memory that this process alone has."""
        sizes = (line.split() for line in (self.folder / "smaps_rollup").read_text().splitlines()[1:])
        return sum(int(parts[1]) for parts in sizes if parts[0].startswith("Private_"))

    def descriptors(self):
        return len(os.listdir(self.folder / "fd"))


def find(name, prefix):
    """The process of this name that runs on a Wine prefix."""
    mark = f"WINEPREFIX={prefix}".encode()
    for folder in PROC.iterdir():
        try:
            if folder.name.isdigit() and (folder / "comm").read_text().startswith(name):
                if mark in (folder / "environ").read_bytes().split(b"\0"):
                    return Process(int(folder.name))
        except OSError:  # ended meanwhile, or another user's
            pass
    raise RuntimeError(f"{name} does not run")


def session_processes(wine):
    """The processes that share the work of one frame."""
    return {"program": find("zelcamera.exe", wine.prefix), "wineserver": find("wineserver", wine.prefix),
            "X server": Process(wine.display.process.pid)}
