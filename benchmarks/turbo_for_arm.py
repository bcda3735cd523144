"""libjpeg-turbo for the handheld's processor: Debian's source of the version that is installed, built as our code is."""

import pathlib
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[1]
HOME = ROOT / "build" / "turbo-arm"
TOOLCHAIN = ROOT / "cmake" / "toolchains" / "armv4t.cmake"
HEADERS = ["jpeglib.h", "jmorecfg.h", "jerror.h"]  # and jconfig.h, which the build makes
ARCHIVES = [("debian", "{0}"), ("debian", "{0}-updates"), ("debian-security", "{0}-security")]


def run(command, log, **options):
    try:
        return subprocess.run([str(word) for word in command], check=True, stdout=log, stderr=subprocess.STDOUT, **options)
    except subprocess.CalledProcessError as error:
        raise RuntimeError(f"libjpeg-turbo could not be built for ARM; see {log.name}") from error


def installed_version():
    return subprocess.run(["dpkg-query", "-W", "-f", "${source:Version}", "libjpeg62-turbo-dev"], check=True, text=True,
                          stdout=subprocess.PIPE).stdout


def release_name():
    lines = pathlib.Path("/etc/os-release").read_text().splitlines()
    return next(line.partition("=")[2] for line in lines if line.startswith("VERSION_CODENAME="))


def fetch(version, log):
    """Unpacks the source with package lists of its own: the machine's sources stay as they are."""
    apt = HOME / "apt"
    for folder in ("lists/partial", "archives/partial"):
        (apt / folder).mkdir(parents=True, exist_ok=True)
    (apt / "sources.list").write_text("".join(
        f"deb-src http://deb.debian.org/{archive} {suite.format(release_name())} main\n" for archive, suite in ARCHIVES))
    options = [f"-oDir::Etc::SourceList={apt / 'sources.list'}", "-oDir::Etc::SourceParts=-",
               f"-oDir::State::Lists={apt / 'lists'}", f"-oDir::Cache={apt}", "-oAPT::Get::List-Cleanup=0"]
    run(["apt-get", *options, "update"], log)
    source = HOME / "source"
    shutil.rmtree(source, ignore_errors=True)
    source.mkdir()
    run(["apt-get", *options, "source", f"libjpeg-turbo={version}"], log, cwd=source)
    return next(path for path in source.iterdir() if path.is_dir())


def provide():
    """The folder with include/ and lib/libjpeg.a, made when it is not there."""
    version = installed_version()
    stamp = HOME / "version"
    if stamp.exists() and stamp.read_text() == version:
        return HOME
    HOME.mkdir(parents=True, exist_ok=True)
    with open(HOME / "build.log", "w") as log:
        source = fetch(version, log)
        made = source / "build-arm"
        run(["cmake", "-G", "Ninja", "-S", source, "-B", made, f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
             "-DCMAKE_BUILD_TYPE=Release", "-DENABLE_SHARED=0", "-DWITH_TURBOJPEG=0", "-DWITH_SIMD=0"], log)
        run(["cmake", "--build", made, "--target", "jpeg-static"], log)
    for folder, paths in (("include", [*(source / name for name in HEADERS), made / "jconfig.h"]),
                          ("lib", [made / "libjpeg.a"])):
        (HOME / folder).mkdir(exist_ok=True)
        for path in paths:
            shutil.copy(path, HOME / folder)
    stamp.write_text(version)
    return HOME
