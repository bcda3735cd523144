#!/usr/bin/python3
"""What must not reach the handheld stops its linker, with a sentence that names it: small objects, each with one fault."""

import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))

from pe_file import PeFile  # noqa: E402

START = """
.syntax unified
.arm
.text
.globl HandheldStart
.type HandheldStart, %function
HandheldStart:
    bl Start
    mov pc, lr
.size HandheldStart, . - HandheldStart
.globl Start
.type Start, %function
Start:
    push {{lr}}
    bl GetTickCount
{body}
    pop {{pc}}
.ltorg
.size Start, . - Start
.section .data.place, "aw"
place: .word Start
"""

# Name -> (what stands in the function, what the linker's sentence says; None where the image is made).
OBJECTS = {
    "sound": ("ldr r0, =place", None),
    "symbol outside the lists": ("bl FlyToTheMoon", r"Start in sound\.o needs FlyToTheMoon, which no library"),
    "data outside the lists": ("ldr r0, =g_moon", r"Start in sound\.o needs g_moon, which no library"),
    "floating-point helper": ("bl __aeabi_dmul", r"Start in sound\.o computes in floating point \(__aeabi_dmul\)"),
    "floating-point function": ("bl ldexp", r"Start in sound\.o computes in floating point \(ldexp\)"),
    "helper of the core library": ("bl __muld", r"Start in sound\.o computes in floating point \(__muld\)"),
    "late instruction": (".arch armv5te\nclz r0, r1", r"Start in sound\.o has the instruction clz r0, r1 at 0x110\w\w"),
    "late load": (".arch armv5te\nldrd r0, [r2]", r"the instruction ldrd r0, \[r2\]"),
    "late call": (".arch armv5te\nblx r3", r"the instruction blx r3"),
    "late nothing": (".arch armv6k\nnop", r"the instruction nop \{0\}"),
    "system call of its own": ("svc #0", r"the instruction svc 0x00000000"),
    "Thumb code": (".arch armv4t\n.thumb\nmovs r0, #1\nmovs r0, #2\n.arm",
                   r"Start in sound\.o is Thumb code from 0x110\w\w on"),
    "open relocation": (".arch armv7-a\nmovw r0, #:lower16:Start",
                        r"Start in sound\.o has a relocation of kind 43 towards \S+ that the image cannot hold"),
    "open relocation, refused by ld": ("b 1f\n.word Start(sbrel)\n1:",
                                       r"in function `Start':\s.*unsupported relocation"),
    "section without a place": ("ldr r0, =moon\n.section .moon, \"a\"\nmoon: .word 1\n.text",
                                r"section `\.moon' from .*sound\.o"),
}
RESOURCE = "1 RCDATA { 1, 2, 3 }\n"


def run(*command):
    return subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


def must(*command):
    result = run(*command)
    if result.returncode:
        raise RuntimeError(result.stdout)
    return result.stdout


def link(folder, libgcc, *files, exports=ROOT / "platform" / "exports"):
    return run("/usr/bin/python3", ROOT / "tools" / "handheld" / "link.py", "--exports", exports,
               "--libgcc", libgcc, "--output", folder / "test.exe", *files)


def check(folder, libgcc, body, sentence):
    (folder / "sound.s").write_text(START.format(body=body.format()))
    must("arm-linux-gnueabi-as", "-march=armv4", "-meabi=5", "-o", folder / "sound.o", folder / "sound.s")
    result = link(folder, libgcc, folder / "sound.o", folder / "test.res")
    image = folder / "test.exe"
    if sentence is None:
        if result.returncode:
            return result.stdout
        names = [name for _, name, _ in PeFile(image).imports()]
        return "" if names == ["GetTickCount"] else f"imports are {names}"
    if result.returncode == 0 or image.exists():
        return "an executable was made"
    return "" if re.search(sentence, result.stdout) else f"the linker said: {result.stdout}"


def check_ordinal(folder, libgcc):
    """A call for which a library has no name."""
    lists = folder / "exports"
    lists.mkdir()
    for library, lines in (("aygshell", "SHInitDialog @56"), ("commctrl", ""), ("coredll", "GetTickCount")):
        (lists / f"{library}.txt").write_text(lines + "\n")
    (folder / "sound.s").write_text(START.format(body="bl SHInitDialog"))
    must("arm-linux-gnueabi-as", "-march=armv4", "-meabi=5", "-o", folder / "sound.o", folder / "sound.s")
    result = link(folder, libgcc, folder / "sound.o", folder / "test.res", exports=lists)
    if result.returncode:
        return result.stdout
    found = [(library, name) for library, name, _ in PeFile(folder / "test.exe").imports()]
    return "" if found == [("aygshell.dll", 56), ("coredll.dll", "GetTickCount")] else f"imports are {found}"


def main():
    failed = False

    def report(name, problem):
        nonlocal failed
        failed |= bool(problem)
        print(f"FAILED handheld image: {name}: {problem}" if problem else f"ok handheld image: {name}", flush=True)

    libgcc = must("arm-none-eabi-gcc", "-march=armv4t", "-marm", "-mfloat-abi=soft", "-print-libgcc-file-name").strip()
    with tempfile.TemporaryDirectory(prefix="zel-image-") as scratch:
        folder = pathlib.Path(scratch)
        (folder / "test.rc").write_text(RESOURCE)
        must("i686-w64-mingw32-windres", "-O", "coff", folder / "test.rc", folder / "test.res")
        for name, (body, sentence) in OBJECTS.items():
            report(name, check(folder, libgcc, body, sentence))

        report("import by ordinal", check_ordinal(folder, libgcc))

        bare = link(folder, libgcc, folder / "sound.o")
        report("no resources", "" if "one object of resources is needed" in bare.stdout else bare.stdout)

        (folder / "empty.s").write_text(".text\nmov pc, lr\n")
        must("arm-linux-gnueabi-as", "-march=armv4", "-meabi=5", "-o", folder / "empty.o", folder / "empty.s")
        lost = link(folder, libgcc, folder / "empty.o", folder / "test.res")
        report("no start", "" if lost.returncode and "HandheldStart" in lost.stdout else f"it said: {lost.stdout}")
    return failed


if __name__ == "__main__":
    sys.exit(main())
