"""The scripted session: drives the camera from outside with clicks and keys, and keeps what it makes in out/."""

import contextlib
import pathlib
import shutil
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
OUT = ROOT / "out"
PROGRAM = ROOT / "build" / "desktop" / "zelcamera.exe"

READ_FRAME = "0x80000013"

# Places on the 240 x 320 screen.
FILE_MENU = (16, 307)
MODE_MENU = (60, 307)
ZOOM_IN = (143, 230)
ZOOM_OUT = (107, 230)
SHUTTER = (198, 250)
PICTURE = (120, 116)

LANGUAGES = [("english", 1033), ("german", 1031), ("french", 1036), ("italian", 1040), ("portuguese", 1046),
             ("spanish", 3082), ("korean", 1042), ("chinese-simplified", 2052), ("chinese-traditional", 1028)]


class Camera:
    """The running program, seen and touched as a person would."""

    def __init__(self, wine, environment, settings):
        self.wine = wine
        self.environment = wine.environment
        self.log = wine.scratch / "card.log"
        self.log.unlink(missing_ok=True)
        wine.run(["reg", "delete", r"HKCU\Software\Zel", "/f"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for name, value in settings.items():
            wine.run(["reg", "add", r"HKCU\Software\Zel\Setting", "/v", name, "/t", "REG_DWORD", "/d", value, "/f"],
                     stdout=subprocess.DEVNULL, check=True)
        self.process = wine.start([PROGRAM], env={**environment, "HANDHELD_LOG": str(self.log)})
        self.window = self._wait(self._find_window, "the camera's window")
        self.wait_frames(8)

    def _x(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True).stdout

    def _find_window(self):
        # The screen is the program's largest window; helpers of one pixel may exist beside it.
        for window in self._x("xdotool", "search", "--onlyvisible", "--class", "zelcamera.exe").split():
            x, y, width, height = self._geometry(window)
            if width >= 240 and height >= 320:
                return window
        return None

    def _geometry(self, window):
        values = dict(line.split("=") for line in
                      self._x("xdotool", "getwindowgeometry", "--shell", window).split() if "=" in line)
        return tuple(int(values.get(name, 0)) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    @staticmethod
    def _wait(condition, what, limit=60.0):
        end = time.monotonic() + limit
        while time.monotonic() < end:
            if result := condition():
                return result
            time.sleep(0.05)
        raise RuntimeError(f"{what} did not come within {limit:.0f} s")

    def frames(self):
        return self.log.read_text(errors="replace").count(READ_FRAME) if self.log.exists() else 0

    def wait_frames(self, count):
        """Waits until the camera has read this many more frames."""
        goal = self.frames() + count
        self._wait(lambda: self.frames() >= goal, "live picture")

    def click(self, place):
        x, y, _, _ = self._geometry(self.window)
        self._x("xdotool", "mousemove", str(x + place[0]), str(y + place[1]))
        time.sleep(0.05)
        self._x("xdotool", "click", "1")
        time.sleep(0.3)

    def key(self, name):
        self._x("xdotool", "key", name)
        time.sleep(0.3)

    def picture(self, name):
        """Keeps a picture of the 240 x 320 screen."""
        x, y, width, height = self._geometry(self.window)
        path = OUT / f"{name}.png"
        self._x("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage", str(path))
        return path

    def close(self):
        if self.process.poll() is None:
            self.click(FILE_MENU)
            self.key("Up")  # Exit is the last item
            self.key("Return")
        try:
            self.process.wait(timeout=20)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


@contextlib.contextmanager
def camera(wine, environment, **settings):
    running = Camera(wine, environment, settings)
    try:
        yield running
    finally:
        running.close()


def play_session(wine, chosen):
    shutil.rmtree(OUT, ignore_errors=True)
    OUT.mkdir()
    environment = {"HANDHELD_ROOT": str(OUT / "store"), "HANDHELD_LCID": "1033", **chosen}
    made = []

    def keep(running, name):
        made.append(running.picture(name))

    with camera(wine, environment, aviresolution="0", **{"instant review": "1"}) as running:
        for zoom in range(3):
            keep(running, f"live-320x240-zoom{zoom}")
            running.click(SHUTTER)
            running.wait_frames(8)
            keep(running, f"review-zoom{zoom}")
            running.wait_frames(30)  # the review lasts two seconds
            running.click(ZOOM_IN)
            running.wait_frames(4)
        running.click(SHUTTER)
        running.wait_frames(8)
        running.click(PICTURE)
        keep(running, "delete-picture")
        running.key("Return")
    with camera(wine, environment, aviresolution="0", selftime="1", awb="2") as running:
        running.click(SHUTTER)
        running.wait_frames(20)
        keep(running, "self-timer")
        running.wait_frames(60)
    with camera(wine, environment, aviresolution="1", awb="1", color="2") as running:
        keep(running, "live-160x120-sepia")
    for name, lcid in LANGUAGES:
        with camera(wine, {**environment, "HANDHELD_LCID": str(lcid)}, aviresolution="0") as running:
            running.click(FILE_MENU)
            keep(running, f"menu-file-{name}")
            running.key("Escape")
            running.click(MODE_MENU)
            keep(running, f"menu-mode-{name}")
            running.key("Escape")
    made += sorted((OUT / "store").rglob("*.jpg"))
    for path in made:
        print(path.relative_to(ROOT))
    return 0
