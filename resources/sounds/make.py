#!/usr/bin/python3
"""Makes the camera's sounds: 22050 Hz, 16 bits, mono.

    make.py          writes the WAVE files beside this script
    make.py --check  changes nothing; names every file that is out of date, exit status 1 if there is one
"""

import io
import pathlib
import sys
import wave

import numpy as np

HERE = pathlib.Path(__file__).resolve().parent
RATE = 22050


def time(seconds):
    return np.arange(int(seconds * RATE)) / RATE


def fade(sound, attack=0.004, release=0.02):
    """Starts and ends in silence, so that nothing clicks by accident."""
    t = np.arange(len(sound)) / RATE
    return sound * np.minimum(1, t / attack) * np.minimum(1, (t[-1] - t) / release)


def bell(pitch, seconds):
    """A soft tone with two overtones that die away faster."""
    t = time(seconds)
    return fade(sum(level * np.sin(2 * np.pi * pitch * partial * t) * np.exp(-t * partial * 3 / seconds)
                    for partial, level in ((1, 1.0), (2, 0.35), (3, 0.12))))


def burst(seconds, centre, width, decay, seed):
    """Noise around a frequency, dying away: the sound of something small and hard."""
    noise = np.random.Generator(np.random.PCG64(seed)).uniform(-1, 1, len(time(seconds)))
    spectrum = np.fft.rfft(noise)
    pitch = np.fft.rfftfreq(len(noise), 1 / RATE)
    shaped = np.fft.irfft(spectrum * np.exp(-(((pitch - centre) / width) ** 2)), len(noise))
    return shaped / np.max(np.abs(shaped)) * np.exp(-time(seconds) / decay)


def thump(seconds, pitch, decay):
    """A damped low knock, falling in pitch."""
    t = time(seconds)
    return np.sin(2 * np.pi * pitch * t * (1 - 1.5 * t)) * np.exp(-t / decay)


def mix(seconds, *parts):
    """Sounds laid over each other: (start in seconds, level, sound)."""
    out = np.zeros(len(time(seconds)))
    for start, level, sound in parts:
        begin = int(start * RATE)
        room = out[begin:begin + len(sound)]
        room += level * sound[:len(room)]
    return out


def beep():
    return bell(1318.5, 0.14)


def start_up():
    """C, E, G, C upwards."""
    return mix(0.85, *((0.1 * i, 1, bell(pitch, 0.55)) for i, pitch in enumerate((523.3, 659.3, 784, 1046.5))))


def shutter():
    """Mirror up, curtain, then the mirror falls back."""
    return mix(0.26,
               (0.000, 0.8, burst(0.05, 3200, 1800, 0.006, 1)),
               (0.002, 0.7, thump(0.08, 190, 0.016)),
               (0.018, 0.35, burst(0.05, 5200, 2200, 0.010, 2)),
               (0.095, 1.0, burst(0.06, 2500, 1700, 0.009, 3)),
               (0.097, 0.9, thump(0.10, 150, 0.022)),
               (0.122, 0.25, burst(0.10, 4200, 2500, 0.022, 4)))


def motor(first, last):
    """The hum of a zoom motor that glides from one pitch to another."""
    t = time(0.24)
    phase = 2 * np.pi * np.cumsum(first * (last / first) ** (t / t[-1])) / RATE
    tone = np.sin(phase) + 0.3 * np.sin(2 * phase) + 0.15 * np.sin(3 * phase)
    return tone * (1 - 0.2 * np.cos(2 * np.pi * 38 * t))


SOUNDS = {
    "beep": (beep, 0.6),
    "isound": (start_up, 0.6),
    "snap": (shutter, 0.9),
    "zoomin": (lambda: motor(440, 740), 0.4),
    "zoomout": (lambda: motor(740, 440), 0.4),
}


def wave_bytes(make, peak):
    sound = fade(make(), attack=0.0005 if make is shutter else 0.006)
    samples = np.rint(sound / np.max(np.abs(sound)) * peak * 32767).astype("<i2")
    out = io.BytesIO()
    with wave.open(out, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())
    return out.getvalue()


def main(arguments):
    if arguments not in ([], ["--check"]):
        raise SystemExit(__doc__)
    wanted = {f"{name}.wav": wave_bytes(*sound) for name, sound in SOUNDS.items()}
    stale = [name for name, data in wanted.items()
             if not (HERE / name).is_file() or (HERE / name).read_bytes() != data]
    for name in stale:
        if not arguments:
            (HERE / name).write_bytes(wanted[name])
        print(f"out of date: {name}" if arguments else name)
    return 1 if arguments and stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
