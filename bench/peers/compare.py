#!/usr/bin/env python3
"""compare.py FOLDER [RUNS]: runs the peers in FOLDER, alternating, on the display of the environment, and prints the
medians of RUNS runs of each (9 unless told) as a table of Markdown."""

import os
import statistics
import subprocess
import sys
import tempfile
import time

FOLDER = sys.argv[1]
RUNS = int(sys.argv[2]) if len(sys.argv) > 2 else 9

# Title; program, or another one for rows that build from a file; environment; whether it draws with OpenGL.
PEERS = (
    ("libGfx", "peer-gfx", None, {}, True),
    ("Qt Quick", "peer-qt-quick", None, {"QSG_RHI_BACKEND": "gl"}, True),
    ("GTK 4, GL", "peer-gtk", None, {"GSK_RENDERER": "gl"}, True),
    ("GTK 4, cairo", "peer-gtk", None, {"GSK_RENDERER": "cairo"}, False),
    ("Qt Widgets", "peer-qt-widgets", "peer-qt-loader", {}, False),
)

# Arguments; whether a file of the toolkit's own format is read; runs, of RUNS; what it prints, and the row's title.
MODES = (
    (("first-frame",), False, 1, {"first-frame": "first frame, from exec", "peak-rss": "peak RSS", "pss": "PSS"}),
    (("full-frame",), False, 1 / 3, {"full-frame": "a full frame, processor time"}),
    (("pressed-frame",), False, 1 / 3, {"pressed-frame": "a frame with a button pressed or released"}),
    (("text-frame",), False, 1 / 3, {"text-frame": "a frame with a button's other text"}),
    (("press", "10"), False, 1 / 3, {"press": "press and release, 10 widgets"}),
    (("press", "10000"), False, 1 / 3, {"press": "press and release, 10,000 widgets"}),
    (("press-display", "10"), False, 1 / 3, {"press-display": "the same through the display, 10 widgets"}),
    (("press-display", "10000"), False, 1 / 9, {"press-display": "the same through the display, 10,000 widgets"}),
    (("build", "1000"), True, 1 / 3, {"build": "a button of 1,000, from data", "build-heap": "its heap"}),
    (("build", "10000"), True, 1 / 9, {"build": "a button of 10,000, from data", "build-heap": "its heap"}),
    (("screen",), True, 1 / 3, {"screen": "the screen from its file, warm"}),
    (("churn",), False, 1 / 3, {"churn": "a round of making and destroying",
                                "churn-growth": "growth after 10,000 rounds"}),
)


# No peer waits for a session bus, which there isn't; a console has none.
ENVIRONMENT = {"DBUS_SESSION_BUS_ADDRESS": "disabled:", "GTK_A11Y": "none"}


def run(peer, arguments, from_file):
    """What a peer prints, by name: value and unit; nothing if it fails."""
    _, program, file_program, environment, _ = peer
    path = os.path.join(FOLDER, file_program if from_file and file_program else program)
    start = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
    try:
        done = subprocess.run([path, *arguments], env=os.environ | ENVIRONMENT | environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True, timeout=300, check=True)
    except (subprocess.CalledProcessError, subprocess.TimeoutExpired):
        return {}
    found = {}
    for line in done.stdout.splitlines():
        name, value, unit = line.split(" ", 2)
        if name == "first-frame-at":
            found["first-frame"] = ((int(value) - start) / 1e6, "ms")
        else:
            found[name] = (float(value), unit)
    return found


def ratio(own, others):
    return f"{own / min(others):.2f}" if own is not None and others and min(others) > 0 else ""


def main(folder):
    ENVIRONMENT["XDG_RUNTIME_DIR"] = folder
    print("| | " + " | ".join(peer[0] for peer in PEERS) + " | of the best with GL | of the best |")
    print("|---" * (len(PEERS) + 3) + "|")
    for arguments, from_file, share, rows in MODES:
        values = {}
        unit = {}
        for _ in range(max(round(RUNS * share), 1)):
            for index, peer in enumerate(PEERS):
                for name, (value, its_unit) in run(peer, arguments, from_file).items():
                    values.setdefault((name, index), []).append(value)
                    unit[name] = its_unit
        for name, title in rows.items():
            medians = [statistics.median(values[name, index]) if (name, index) in values else None
                       for index in range(len(PEERS))]
            rest = list(zip(medians, PEERS))[1:]
            cells = ["-" if median is None else f"{median:.3g} {unit[name]}" for median in medians]
            cells.append(ratio(medians[0], [median for median, peer in rest if median is not None and peer[4]]))
            cells.append(ratio(medians[0], [median for median, _ in rest if median is not None]))
            print(f"| {title} | " + " | ".join(cells) + " |", flush=True)


with tempfile.TemporaryDirectory() as runtime_folder:
    main(runtime_folder)
