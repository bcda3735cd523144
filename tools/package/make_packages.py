"""Builds and packs the program for the handheld and for the desktop: two archives with a README each in build/package."""

import argparse
import pathlib
import subprocess
import sys
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(ROOT / "tests" / "support"))

from pe_file import PeFile  # noqa: E402

KIB = 1024
HELP = "Lumetta Mobile Camera Help*.htm"
DESKTOP_FILES = ["zelcamera.exe", "coredll.dll", "commctrl.dll", "aygshell.dll", "sio.dll", "Localization.dll",
                 "korvoimgview.exe", "peghelp.exe"]

# Every file of an archive bears this time, so that the same build gives the same archive.
TIME = (2000, 1, 1, 0, 0, 0)


def build(preset):
    for command in (["cmake", "--preset", preset], ["cmake", "--build", "--preset", preset]):
        result = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if result.returncode:
            sys.exit(f"The {preset} build failed:\n{result.stdout[-3000:]}")


def help_pages():
    pages = sorted((ROOT / "build" / "desktop").glob(HELP))
    if not pages:
        sys.exit("The desktop build has no help pages")
    return pages


def readme(name, **figures):
    text = (HERE / name).read_text(encoding="utf-8")
    for figure, value in figures.items():
        text = text.replace("{" + figure + "}", str(value))
    return text.replace("\n", "\r\n").encode()


def handheld_content():
    program = ROOT / "build" / "handheld" / "zelcamera.exe"
    memory = sum(section.memory for section in PeFile(program).sections if section.name not in (".rsrc", ".reloc"))
    content = {"README.txt": readme("handheld_readme.txt", program_kib=-(-program.stat().st_size // KIB),
                                    memory_kib=-(-memory // KIB)),
               "zelcamera.exe": program.read_bytes()}
    return content | {f"Windows/{page.name}": page.read_bytes() for page in help_pages()}


def desktop_content():
    folder = ROOT / "build" / "desktop"
    content = {"README.txt": readme("desktop_readme.txt")}
    content |= {name: (folder / name).read_bytes() for name in DESKTOP_FILES}
    return content | {page.name: page.read_bytes() for page in help_pages()}


def pack(archive, content):
    """All files in one folder of the archive's name."""
    archive.parent.mkdir(parents=True, exist_ok=True)
    unfinished = archive.with_suffix(".part")
    with zipfile.ZipFile(unfinished, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as out:
        for name in sorted(content):
            entry = zipfile.ZipInfo(f"{archive.stem}/{name}", TIME)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = (0o755 if name.endswith(".exe") else 0o644) << 16
            out.writestr(entry, content[name])
    unfinished.replace(archive)


def main():
    parser = argparse.ArgumentParser(prog="./package", description=__doc__)
    parser.add_argument("--output", type=pathlib.Path, default=ROOT / "build" / "package", metavar="FOLDER",
                        help="where the archives go (default: build/package)")
    parser.add_argument("--no-build", action="store_true", help="pack what is built already")
    options = parser.parse_args()
    if not options.no_build:
        build("desktop")
        build("handheld")
    for name, content in (("zel-camera-handheld", handheld_content()), ("zel-camera-desktop", desktop_content())):
        archive = options.output / f"{name}.zip"
        pack(archive, content)
        print(f"{archive}: {archive.stat().st_size // KIB} KiB")


if __name__ == "__main__":
    main()
