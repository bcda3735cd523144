"""Every screen of the camera in all nine languages: one picture each in out/languages, and a sheet of nine for each."""

import shutil
import subprocess

from camera_window import (BOX, CLOSE_BOX, FILE_MENU, HELP, MENU, MODE_MENU, PICTURE, PLAY, ROOT, SHUTTER, VIEWER, Camera,
                           camera)

OUT = ROOT / "out" / "languages"

LANGUAGES = [("english", 1033), ("german", 1031), ("french", 1036), ("italian", 1040), ("portuguese", 1046),
             ("spanish", 3082), ("korean", 1042), ("chinese-simplified", 2052), ("chinese-traditional", 1028)]
FULL_STORE_KB = "2100"  # no picture fits


class Walk:
    """One language's way through the screens."""

    def __init__(self, wine, name, environment):
        self.wine, self.name, self.environment = wine, name, environment

    def camera(self, variables=None, **settings):
        return camera(self.wine, {**self.environment, **(variables or {})}, aviresolution="0", **settings)

    def keep(self, running, screen):
        running.picture(OUT / screen / f"{self.name}.png")

    def menus_and_dialogs(self):
        with self.camera(selftime="2", **{"business card": "1"}) as running:
            self.keep(running, "live")
            for screen, menu in (("menu-file", FILE_MENU), ("menu-mode", MODE_MENU)):
                running.click(menu)
                self.keep(running, screen)
                running.key("Escape")
            running.choose(FILE_MENU, "Down", "Down", "Down")
            self.keep(running, "about")
            running.key("Escape")
            running.click(MENU)
            self.keep(running, "settings")
            running.key("Escape")
            running.wait_frames(4)
            running.choose(MODE_MENU, "Down", "Down")
            running.wait_frames(4)
            self.keep(running, "video")

    def review_and_viewer(self):
        with self.camera(**{"instant review": "3"}) as running:
            running.take()
            running.wait_frames(4)
            self.keep(running, "review")
            running.click(PICTURE)
            self.keep(running, "delete")
            running.key("Escape")
            running.wait_frames(4)
            running.click(PLAY)
            running.look_at(VIEWER)
            running.click(PICTURE)
            self.keep(running, "viewer")
            self.close(running)

    def empty_viewer(self):
        empty = {"HANDHELD_ROOT": self.environment["HANDHELD_ROOT"] + "-empty"}
        with self.camera(empty) as running:
            running.click(PLAY)
            running.look_at(VIEWER)
            running.click(PICTURE)
            self.keep(running, "viewer-empty")
            self.close(running)

    def help(self):
        with self.camera() as running:
            running.key("shift+F1")
            running.look_at(HELP)
            running.click((120, 312))
            self.keep(running, "help")
            for _ in range(2):
                running.key("Next")
            self.keep(running, "help-further")
            self.close(running)

    def messages(self):
        with self.camera({"HANDHELD_STORE_KB": FULL_STORE_KB}) as running:
            self.keep(running, "full-store")
            running.click(SHUTTER)
            self.keep(running, "full-store-button")
            running.key("Return")
            running.wait_frames(2)
            running.key("F5")
            self.keep(running, "full-store-key")
            running.key("Return")
        without = Camera(self.wine, {**self.environment, "HANDHELD_CAMERA": "none"}, {}, smallest=BOX)
        self.keep(without, "no-camera")
        without.key("Return")
        without.close()

    @staticmethod
    def close(running):
        window = running.window
        running.click(CLOSE_BOX)
        running.wait(lambda: window not in running.windows(VIEWER) + running.windows(HELP), "the window's end")


def make_sheet(screen):
    names = [OUT / screen / f"{name}.png" for name, _ in LANGUAGES]
    sheet = OUT / f"{screen}.png"
    subprocess.run(["montage", *map(str, names), "-tile", "5x2", "-geometry", "240x320>+4+4", "-background", "#444",
                    str(sheet)], check=True)
    return sheet


def walk_languages(wine, chosen):
    shutil.rmtree(OUT, ignore_errors=True)
    for name, locale in LANGUAGES:
        walk = Walk(wine, name, {"HANDHELD_ROOT": str(OUT / "store" / name), **chosen, "HANDHELD_LCID": str(locale)})
        for part in (walk.menus_and_dialogs, walk.review_and_viewer, walk.empty_viewer, walk.help, walk.messages):
            part()
    shutil.rmtree(OUT / "store", ignore_errors=True)
    for screen in sorted(path.name for path in OUT.iterdir() if path.is_dir()):
        print(make_sheet(screen).relative_to(ROOT))
    return 0
