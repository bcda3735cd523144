"""A private Wine: its own prefix, its own virtual display, its own object store; ends only what it started."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Fonts for Korean and Chinese: Wine draws boxes where the chosen face lacks a glyph and no link names another.
CJK_FACE = "WenQuanYi Micro Hei"
LINKED_FACES = ["Tahoma", "Tahoma Bold", "MS Shell Dlg", "Microsoft Sans Serif", "MS Sans Serif"]

# For the tests: local time is not UTC, so that it shows which of the two a program uses.
TEST_ZONE = {"TZ": "XYZ-9"}


class Display:
    """An X server without a screen, on a display number that the server itself chooses."""

    def __init__(self, width=800, height=600):
        read_end, write_end = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"],
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.name = f":{number}"

    def close(self):
        self.process.terminate()
        self.process.wait()


class WineSession:
    """Runs Windows programs.  `prefix` is kept between sessions; everything else goes with this one."""

    def __init__(self, prefix=ROOT / "build" / "wine", display=None):
        self.display = None if display else Display()
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="zel-session-"))
        self.environment = {
            name: value for name, value in os.environ.items() if not name.startswith(("HANDHELD_", "WINE"))}
        self.environment.update(
            DISPLAY=display or self.display.name, WINEPREFIX=str(prefix), WINEDEBUG="-all", WINEARCH="win64",
            WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d", LC_ALL="C.UTF-8", LANG="C.UTF-8",
            HANDHELD_ROOT=str(self.scratch / "store"), HANDHELD_KEYPAD="off")
        self.prefix = pathlib.Path(prefix)
        self.server = None
        self._prepare_prefix()

    def _prepare_prefix(self):
        ready = self.prefix / "zel-ready"
        if not ready.exists():
            shutil.rmtree(self.prefix, ignore_errors=True)
            self.prefix.mkdir(parents=True)
        # One server for the whole session: programs start at once and the registry stays in memory.
        subprocess.run([self._tool("wineserver"), "-p"], env=self.environment, check=True)
        # Wine's own services live on with the outputs of the first program: nobody may wait for the end of those.
        first = ["cmd", "/c", "exit"] if ready.exists() else ["wineboot", "-i"]
        self.run(first, timeout=180, check=True, stdout=subprocess.DEVNULL)
        if not ready.exists():
            # Wine overlooks the distribution's copy of its own fonts.
            for font in pathlib.Path("/usr/share/wine/fonts").glob("tahoma*.ttf"):
                shutil.copy(font, self.prefix / "drive_c" / "windows" / "Fonts")
            links = "".join(f'"{face}"=hex(7):' + _multi_string(f"wqy-microhei.ttc,{CJK_FACE}") + "\n"
                            for face in LINKED_FACES)
            registry = self.scratch / "fonts.reg"
            registry.write_text(
                "Windows Registry Editor Version 5.00\n\n"
                "[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink]\n" + links,
                encoding="utf-16")
            self.run(["regedit", "/S", str(registry)], timeout=60, check=True)
            if self.display:
                # Without a window manager Wine would wait two seconds for one at every window.
                self.run(["reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", "Managed", "/d", "N", "/f"],
                         timeout=60, check=True, stdout=subprocess.DEVNULL)
            ready.touch()

    @staticmethod
    def _tool(name):
        for candidate in (shutil.which(name), f"/usr/lib/wine/{name}", f"/usr/lib/wine/{name}64"):
            if candidate and os.access(candidate, os.X_OK):
                return candidate
        raise RuntimeError(f"{name} was not found")

    def run(self, command, timeout=None, check=False, **extra):
        """Runs a Windows program to its end."""
        extra.setdefault("stderr", subprocess.DEVNULL)  # sound and font libraries chatter there
        return subprocess.run(["wine", *map(str, command)], env={**self.environment, **extra.pop("env", {})},
                              timeout=timeout, check=check, stdin=subprocess.DEVNULL, **extra)

    def start(self, command, **extra):
        """Starts a Windows program; the caller ends it."""
        extra.setdefault("stderr", subprocess.DEVNULL)
        return subprocess.Popen(["wine", *map(str, command)], env={**self.environment, **extra.pop("env", {})},
                                stdin=subprocess.DEVNULL, **extra)

    def close(self):
        # Ends this prefix's server and the programs that run on it, nothing else.
        subprocess.run([self._tool("wineserver"), "-k"], env=self.environment, check=False)
        subprocess.run([self._tool("wineserver"), "-w"], env=self.environment, check=False)
        if self.display:
            self.display.close()
        shutil.rmtree(self.scratch, ignore_errors=True)


def _multi_string(*texts):
    data = "".join(text + "\0" for text in texts) + "\0"
    return ",".join(f"{byte:02x}" for byte in data.encode("utf-16-le"))


@contextlib.contextmanager
def wine_session(**options):
    def interrupted(*_):
        raise KeyboardInterrupt
    signal.signal(signal.SIGTERM, interrupted)
    session = WineSession(**options)
    try:
        yield session
    finally:
        session.close()
