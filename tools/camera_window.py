"""The running camera, seen and touched from outside as a person would."""

import contextlib
import pathlib
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
PROGRAM = ROOT / "build" / "desktop" / "zelcamera.exe"
CAMERA, VIEWER, HELP = "zelcamera.exe", "korvoimgview.exe", "peghelp.exe"

READ_FRAME = "0x80000013"
SCREEN = (240, 320)
BOX = (100, 60)  # no message box is smaller

# Places on the 240 x 320 screen.
FILE_MENU = (16, 307)
MODE_MENU = (60, 307)
MENU = (76, 265)
PLAY = (116, 265)
ZOOM_OUT = (107, 227)
ZOOM_IN = (143, 227)
SHUTTER = (198, 250)
PICTURE = (120, 116)
CLOSE_BOX = (227, 13)  # of viewer and help
BACK_TO_CAMERA = (220, 300)  # in the viewer


class Camera:
    """The camera program, or whichever program of the handheld has followed it on the screen."""

    def __init__(self, wine, environment, settings, smallest=SCREEN):
        self.wine = wine
        self.environment = wine.environment
        self.log = wine.scratch / "card.log"
        self.log.unlink(missing_ok=True)
        wine.run(["reg", "delete", r"HKCU\Software\Zel", "/f"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for name, value in settings.items():
            wine.run(["reg", "add", r"HKCU\Software\Zel\Setting", "/v", name, "/t", "REG_DWORD", "/d", value, "/f"],
                     stdout=subprocess.DEVNULL, check=True)
        self.store = pathlib.Path(environment.get("HANDHELD_ROOT", wine.environment["HANDHELD_ROOT"]))
        self.process = wine.start([PROGRAM], env={**environment, "HANDHELD_LOG": str(self.log)})
        self.window = None
        self.look_at(CAMERA, smallest)

    def _x(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True).stdout

    def windows(self, program, smallest=SCREEN):
        """Visible windows of a program that are as large as the screen; smaller ones are its helpers and boxes."""
        found = self._x("xdotool", "search", "--onlyvisible", "--class", program).split()
        return [window for window in found if all(have >= want for have, want in zip(self._geometry(window)[2:], smallest))]

    def _geometry(self, window):
        values = dict(line.split("=") for line in
                      self._x("xdotool", "getwindowgeometry", "--shell", window).split() if "=" in line)
        return tuple(int(values.get(name, 0)) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def look_at(self, program, smallest=SCREEN):
        """Waits for a program's window and works with that from now on."""
        self.window = self.wait(lambda: next(iter(self.windows(program, smallest)), None), f"the window of {program}")

    @staticmethod
    def wait(condition, what, limit=60.0):
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
        self.wait(lambda: self.frames() >= goal, "live picture")

    def stills(self):
        return sorted(self.store.rglob("*.jpg"))

    def take(self, place=SHUTTER):
        """Presses the shutter and waits for the file."""
        before = len(self.stills())
        self.click(place)
        self.wait(lambda: len(self.stills()) > before, "the picture's file")

    def point_at(self, place):
        x, y, _, _ = self._geometry(self.window)
        self._x("xdotool", "mousemove", str(x + place[0]), str(y + place[1]))
        time.sleep(0.05)

    def hold(self):
        self._x("xdotool", "mousedown", "1")

    def let_go(self):
        """Does not wait for the tool, which lingers after its work is done."""
        return subprocess.Popen(["xdotool", "mouseup", "1"], env=self.environment)

    def click(self, place):
        self.point_at(place)
        self._x("xdotool", "click", "1")
        time.sleep(0.3)

    def key(self, name):
        self._x("xdotool", "key", name)
        time.sleep(0.3)

    def choose(self, menu, *steps):
        """Opens a pop-up of the menu bar, moves the choice and takes it."""
        self.click(menu)
        for step in steps:
            self.key(step)
        self.key("Return")

    def picture(self, path):
        """Keeps a picture of the screen, or of a box that stands without one."""
        x, y, width, height = (min(pair) for pair in zip(self._geometry(self.window), (10000, 10000, *SCREEN)))
        path.parent.mkdir(parents=True, exist_ok=True)
        self._x("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage", str(path))
        return path

    def close(self):
        """Ends the camera by its menu, wherever it was started from."""
        if self.windows(CAMERA):
            self.look_at(CAMERA)
            self.choose(FILE_MENU, "Up")  # Exit is the last item
            with contextlib.suppress(RuntimeError):
                self.wait(lambda: not self.windows(CAMERA), "the end of the camera", limit=20)
        try:
            self.process.wait(timeout=20)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


@contextlib.contextmanager
def camera(wine, environment, **settings):
    """A camera with live pictures."""
    running = Camera(wine, environment, settings)
    try:
        running.wait_frames(8)
        yield running
    finally:
        running.close()
