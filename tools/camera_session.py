"""The scripted session: works the camera with clicks and keys, and keeps what it makes in out/."""

import shutil

from camera_window import BACK_TO_CAMERA, CAMERA, FILE_MENU, MENU, PICTURE, PLAY, ROOT, SHUTTER, VIEWER, ZOOM_IN, camera

OUT = ROOT / "out"

# One still each: name, zoom level, settings.  The live view is large (aviresolution 0) or small (1).
STILLS = [
    ("large-colour", 0, {"aviresolution": "0", "resolution": "0", "imagequality": "2"}),
    ("large-sepia-tungsten", 1, {"aviresolution": "0", "resolution": "1", "awb": "3", "color": "2"}),
    ("small-grey-daylight", 2, {"aviresolution": "1", "resolution": "2", "awb": "1", "color": "1"}),
]


class Session:
    """What was made so far, numbered in the order of the story."""

    def __init__(self, wine, environment):
        self.wine, self.environment, self.made = wine, environment, []

    def stills(self):
        return sorted((OUT / "store").rglob("*.jpg"))

    def camera(self, **settings):
        """A camera with a fresh profile that goes on with the numbers of the pictures."""
        return camera(self.wine, self.environment, jpgno=str(len(self.stills()) + 1), **settings)

    def keep(self, running, name):
        self.made.append(running.picture(OUT / f"{len(self.made) + 1:02}-{name}.png"))


def take_stills(session):
    for name, zoom, settings in STILLS:
        with session.camera(**settings, **{"instant review": "2"}) as running:
            for _ in range(zoom):
                running.click(ZOOM_IN)
            running.wait_frames(4)
            session.keep(running, f"live-{name}-zoom{zoom}")
            running.take()
            running.wait_frames(4)
            session.keep(running, f"review-{name}-zoom{zoom}")


def count_down(session):
    with session.camera(aviresolution="0", selftime="1", **{"instant review": "1", "business card": "1"}) as running:
        session.keep(running, "self-timer-waiting")
        before = len(running.stills())
        running.click(SHUTTER)
        running.wait_frames(15)
        session.keep(running, "self-timer-counting")
        running.wait(lambda: len(running.stills()) > before, "the self-timer's picture")
        running.wait_frames(3)
        session.keep(running, "self-timer-review")


def delete_in_review(session):
    with session.camera(aviresolution="0", **{"instant review": "3"}) as running:
        running.take()
        running.wait_frames(4)
        taken = set(running.stills())
        running.click(PICTURE)
        session.keep(running, "review-delete")
        running.key("Return")
        running.wait(lambda: set(running.stills()) < taken, "the picture's end")
        running.wait_frames(4)
        session.keep(running, "review-deleted")


def play_and_back(session):
    with session.camera(aviresolution="0", **{"instant review": "0"}) as running:
        running.take()
        running.click(PLAY)
        running.look_at(VIEWER)
        running.click(PICTURE)  # the viewer is ready when it answers; a tap changes nothing
        session.keep(running, "viewer")
        running.click(BACK_TO_CAMERA)
        running.look_at(CAMERA)
        running.wait_frames(8)
        session.keep(running, "back-from-the-viewer")


def menus_and_dialogs(session):
    with session.camera(aviresolution="0") as running:
        running.click(FILE_MENU)
        session.keep(running, "menu-file")
        running.key("Escape")
        running.choose(FILE_MENU, "Down", "Down", "Down")
        session.keep(running, "about")
        running.key("Escape")
        running.wait_frames(4)
        running.click(MENU)
        session.keep(running, "settings")
        running.key("Escape")
        running.wait_frames(4)


def play_session(wine, chosen):
    shutil.rmtree(OUT, ignore_errors=True)
    session = Session(wine, {"HANDHELD_ROOT": str(OUT / "store"), "HANDHELD_LCID": "1033", **chosen})
    for scene in (take_stills, count_down, delete_in_review, play_and_back, menus_and_dialogs):
        scene(session)
    for path in session.made + session.stills():
        print(path.relative_to(ROOT))
    return 0
