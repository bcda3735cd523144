#!/usr/bin/python3
"""The archives: they hold what they should, are the same every time, and the desktop's program runs wherever it is unpacked."""

import pathlib
import subprocess
import sys
import tempfile
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))

from pe_file import PeFile  # noqa: E402
from wine_session import wine_session  # noqa: E402

PAGE = "Lumetta Mobile Camera Help"
PAGES = {f"{PAGE}.htm"} | {f"{PAGE}.{language}.htm" for language in
                           ("de", "es", "fr", "it", "ko", "pt", "zh-hans", "zh-hant")}
HANDHELD = {"README.txt", "zelcamera.exe"} | {f"Windows/{page}" for page in PAGES}
DESKTOP = {"README.txt", "zelcamera.exe", "coredll.dll", "commctrl.dll", "aygshell.dll", "sio.dll", "Localization.dll",
           "korvoimgview.exe", "peghelp.exe"} | PAGES
READ_FRAME = "control 0x80000013"
LIMIT = 60  # seconds until the program shows frames


def pack(folder):
    subprocess.run(["/usr/bin/python3", ROOT / "tools" / "package" / "make_packages.py", "--no-build", "--output", folder],
                   check=True, stdout=subprocess.DEVNULL)


def check_content(archive, wanted):
    with zipfile.ZipFile(archive) as packed:
        names = {name.removeprefix(archive.stem + "/") for name in packed.namelist()}
        yield from (f"{name} is missing" for name in sorted(wanted - names))
        yield from (f"{name} does not belong there" for name in sorted(names - wanted))
        yield from (f"{entry.filename} is empty" for entry in packed.infolist() if entry.file_size == 0)
        text = packed.read(f"{archive.stem}/README.txt").decode()
        if "{" in text or text.count("\n") != text.count("\r\n"):
            yield "the README has open places or line ends that Windows does not show"


def check_same(first, second):
    for archive in sorted(first.glob("*.zip")):
        if archive.read_bytes() != (second / archive.name).read_bytes():
            yield f"{archive.name} differs from one time to the next"


def check_machine(folder):
    if PeFile(folder / "zel-camera-handheld" / "zelcamera.exe").machine != 0x1C0:
        yield "the handheld's program is not for ARM"


def check_start(folder):
    """The current folder is another one, so that everything is found beside the program or not at all."""
    with wine_session() as wine:
        log, elsewhere = wine.scratch / "card.log", wine.scratch / "elsewhere"
        elsewhere.mkdir()
        program = wine.start([folder / "zel-camera-desktop" / "zelcamera.exe"], cwd=elsewhere,
                             env={"HANDHELD_LOG": str(log), "HANDHELD_LCID": "1033"})
        end = time.monotonic() + LIMIT
        frames = 0
        while frames < 5 and program.poll() is None and time.monotonic() < end:
            time.sleep(0.1)
            frames = log.read_text(errors="replace").count(READ_FRAME) if log.exists() else 0
        if program.poll() is not None:
            yield f"the program ended by itself with {program.returncode}"
        elif frames < 5:
            yield f"{frames} frames within {LIMIT} s"
        program.terminate()


def main():
    failed = False

    def report(name, problems):
        nonlocal failed
        problems = list(problems)
        failed |= bool(problems)
        print(f"FAILED packages: {name}: " + "; ".join(problems) if problems else f"ok packages: {name}", flush=True)

    with tempfile.TemporaryDirectory(prefix="zel-package-") as scratch:
        first, second, foreign = (pathlib.Path(scratch) / name for name in ("first", "second", "a foreign folder"))
        pack(first)
        pack(second)
        report("handheld's content", check_content(first / "zel-camera-handheld.zip", HANDHELD))
        report("desktop's content", check_content(first / "zel-camera-desktop.zip", DESKTOP))
        report("same bytes every time", check_same(first, second))
        for archive in first.glob("*.zip"):
            zipfile.ZipFile(archive).extractall(foreign)
        report("program for ARM", check_machine(foreign))
        report("start from a foreign folder", check_start(foreign))
    return failed


if __name__ == "__main__":
    sys.exit(main())
