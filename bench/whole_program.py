#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The whole program beside Debian's `motion`, and beside decoding alone: processor time per frame and peak memory, in turn.

    bench/whole_program.py [--rounds 3] [--seconds 12] [--warm 8] [--program PATH] [--keep]

Needs the packages of scripts/packages.txt and scripts/packages-bench.txt, and the program as ./run builds it.

What is measured: all threads' time on a processor (/proc/PID/task/*/schedstat, user and system, in nanoseconds) between
two moments of the steady state, divided by the frames that the clip gives in that time. Start-up is left out. It is
processor time, so other work on the machine disturbs it little, but it does disturb it (caches): the rounds take turns
and the median is told with the spread. Peak memory is VmHWM, start-up included.

All play the same file at its own rate, in a loop. The third side, decode_alone, is libavcodec with one thread and nothing
else: no container, no conversion, nobody who looks. Ours looks at every frame; motion above 5 frames a
second analyses about three a second and only decodes the others. Both have their automatic tolerance on or off as a
fresh installation has it, no photos, no films, no web servers. Threads of ours that died between the two moments are
counted by the process total instead of the sum of its threads.
"""
import argparse
import os
import platform
import re
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
TOP = os.path.dirname(HERE)
VTEST = "/usr/share/doc/opencv-doc/examples/data/vtest.avi"

MOTION_CONF = """\
daemon off
setup_mode off
log_level 5
target_dir {out}
netcam_url file://{clip}
netcam_params capture_rate={rate}
width {width}
height {height}
framerate {rate}
text_left
text_right
threshold 1500
event_gap 60
pre_capture 0
post_capture 0
minimum_motion_frames 1
picture_output off
movie_output off
webcontrol_port 0
stream_port 0
"""


def say(text=""):
    print(text, flush=True)


def read(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read()


def processor_time(pid):
    """Nanoseconds on a processor of all threads of a process that live now, and the moment."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        try:
            total += int(read(f"/proc/{pid}/task/{task}/schedstat").split()[0])
        except FileNotFoundError:
            pass  # the thread ended meanwhile
    return total, time.monotonic()


def status_field(pid, field):
    return int(re.search(rf"^{field}:\s+(\d+)", read(f"/proc/{pid}/status"), re.M).group(1))


def end(process):
    process.send_signal(signal.SIGTERM)
    try:
        process.wait(15)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Screen:
    """A virtual screen under a free number, for as long as the script runs."""

    def __init__(self):
        reading, writing = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            self.name = ":" + answer.readline().strip()

    def windows(self, pid):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(pid)], env=self.environment(),
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
        return found.stdout.split()

    def environment(self):
        return {**os.environ, "DISPLAY": self.name, "QT_QPA_PLATFORM": "xcb"}

    def hide(self, pid):
        """What minimising does, without a window manager: no window of the program is visible any more."""
        for window in self.windows(pid):
            subprocess.run(["xdotool", "windowunmap", window], env=self.environment(), check=False)

    def close(self):
        end(self.process)


def start_motion(clip, folder):
    configuration = os.path.join(folder, "motion.conf")
    with open(configuration, "w", encoding="utf-8") as file:
        file.write(MOTION_CONF.format(out=folder, clip=clip["path"], **clip))
    with open(os.path.join(folder, "log"), "wb") as log:
        return subprocess.Popen(["motion", "-n", "-c", configuration], stdout=log, stderr=log)


def start_decoding(program, clip, folder):
    with open(os.path.join(folder, "log"), "wb") as log:
        return subprocess.Popen([program, clip["path"], str(clip["rate"])], stdout=log, stderr=log)


def start_ours(program, clip, folder, environment):
    with open(os.path.join(folder, "log"), "wb") as log:
        return subprocess.Popen([program, f"/camera:{clip['path']}", "/alarm", f"/dossier:{folder}"],
                                stdout=log, stderr=log, env=environment)


def measure(start, prepare, clip, options):
    folder = tempfile.mkdtemp(prefix="vaktor-bench-", dir="/dev/shm")
    process = start(folder)
    try:
        time.sleep(options.warm)
        prepare(process.pid)
        time.sleep(1)
        before, moment = processor_time(process.pid)
        time.sleep(options.seconds)
        after, later = processor_time(process.pid)
        if process.poll() is not None:
            raise RuntimeError(f"it ended with status {process.returncode}:\n" + read(os.path.join(folder, "log")))
        return {"cpu": (after - before) / 1e3 / (clip["rate"] * (later - moment)),
                "peak": status_field(process.pid, "VmHWM"), "threads": status_field(process.pid, "Threads")}
    finally:
        end(process)
        if not options.keep:
            shutil.rmtree(folder, ignore_errors=True)


def make(name, *how):
    """A film that is made of vtest.avi once."""
    path = os.path.join(TOP, "build", "bench", name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    if not os.path.exists(path):
        part = f"{path}.part{os.path.splitext(name)[1]}"
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", "-i", VTEST, *how, part], check=True)
        os.rename(part, path)
    return path


def h264(width, height, rate, seconds):
    """As a network camera sends it: no reordered pictures, a whole one every two seconds. vtest.avi, quicker and larger."""
    return make(f"vtest_{width}x{height}_{rate}.mp4", "-vf", f"setpts=N/{rate}/TB,scale={width}:{height}", "-r", str(rate),
                "-t", str(seconds), "-pix_fmt", "yuv420p", "-c:v", "libx264", "-preset", "veryfast", "-bf", "0",
                "-g", str(2 * rate), "-crf", "24")


def clips(options):
    """`hidden`: what ours may take, of decoding alone, with hidden windows; `goal`: the same of motion's time."""
    made = {
        "vtest.avi 768x576, 10/s": lambda: VTEST,
        "MJPEG 640x480, 10/s": lambda: make(
            "vtest_640x480_mjpeg.avi", "-vf",
            "scale=640:480:force_original_aspect_ratio=increase:flags=bicubic,crop=640:480", "-r", "10", "-pix_fmt",
            "yuvj420p", "-c:v", "mjpeg", "-q:v", "4"),
        "H.264 1920x1080, 25/s": lambda: h264(1920, 1080, 25, 12),
        "H.264 3840x2160, 15/s": lambda: h264(3840, 2160, 15, 8),
    }
    all_clips = [
        {"width": 768, "height": 576, "rate": 10, "goal": 0.60, "hidden": 1.35},
        {"width": 640, "height": 480, "rate": 10, "goal": 0.75, "hidden": 1.10},
        {"width": 1920, "height": 1080, "rate": 25, "goal": 1.0, "hidden": 1.10},
        {"width": 3840, "height": 2160, "rate": 15, "goal": 1.0, "hidden": 1.25},
    ]
    return [{**clip, "name": name, "path": path()} for (name, path), clip in zip(made.items(), all_clips)
            if options.only in name]


def describe_machine():
    processor = re.search(r"model name\s*:\s*(.*)", read("/proc/cpuinfo"))
    memory = int(re.search(r"MemTotal:\s+(\d+)", read("/proc/meminfo")).group(1)) // 1024
    versions = subprocess.run(["dpkg-query", "-W", "-f=${Package} ${Version}\n", "motion", "libqt6core6",
                               "libgstreamer1.0-0", "gstreamer1.0-libav", "libturbojpeg0"],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False).stdout
    say(f"Machine: {processor.group(1) if processor else platform.machine()}, {os.cpu_count()} processors, "
        f"{memory} MiB, Linux {platform.release()}; load at the start {read('/proc/loadavg').split()[0]}")
    say("Versions: " + ", ".join(versions.split("\n")[:-1]))


def column(rows, key):
    values = [row[key] for row in rows]
    return f"{statistics.median(values):9.0f} ({min(values):.0f} to {max(values):.0f})"


def report(clip, results):
    say(f"\n{clip['name']}")
    say(f"  {'':28s} {'CPU us/frame (spread)':28s} {'peak KiB (spread)':30s} threads")
    for name, rows in results.items():
        say(f"  {name:28s} {column(rows, 'cpu'):28s} {column(rows, 'peak'):30s} {rows[-1]['threads']}")
    median = {name: {key: statistics.median(row[key] for row in rows) for key in ("cpu", "peak")}
              for name, rows in results.items()}
    for name, values in median.items():
        if "Vaktor" not in name:
            continue
        if "motion" in median:
            goal = clip["goal"] if "hidden" in name else 1.0
            say(f"  {name + ' / motion':38s} CPU {values['cpu'] / median['motion']['cpu']:.3f} (goal {goal:.2f}), "
                f"peak memory {values['peak'] / median['motion']['peak']:.3f} (goal 1.0)")
        if "decoding" in median:
            goal = f" (goal {clip['hidden']:.2f})" if "hidden" in name else ""
            say(f"  {name + ' / decoding':38s} CPU {values['cpu'] / median['decoding']['cpu']:.3f}{goal}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--seconds", type=float, default=12)
    parser.add_argument("--warm", type=float, default=8)
    parser.add_argument("--program", default=os.path.join(TOP, "build", "release", "Vaktor", "Vaktor"))
    parser.add_argument("--only", default="", help="only the clips whose name holds this text")
    parser.add_argument("--without", default="", help="leave out: motion, decoding, hidden or shown")
    parser.add_argument("--decoder", default=os.path.join(TOP, "build", "release", "bench", "decode_alone"))
    parser.add_argument("--keep", action="store_true", help="keep the folders of the runs, in /dev/shm")
    options = parser.parse_args()
    if not os.access(options.program, os.X_OK):
        sys.exit(f"There is no program at {options.program}: type ./run first, or name it with --program.")

    describe_machine()
    screen = Screen()
    try:
        for clip in clips(options):
            def ours(folder):
                return start_ours(options.program, clip, folder, screen.environment())
            kinds = {"decoding": (lambda folder: start_decoding(options.decoder, clip, folder), lambda pid: None),
                     "motion": (lambda folder: start_motion(clip, folder), lambda pid: None),
                     "Vaktor, windows hidden": (ours, screen.hide), "Vaktor, windows shown": (ours, lambda pid: None)}
            kinds = {name: kind for name, kind in kinds.items() if not options.without or options.without not in name}
            results = {name: [] for name in kinds}
            for _ in range(options.rounds):
                for name, (start, prepare) in kinds.items():
                    results[name].append(measure(start, prepare, clip, options))
            report(clip, results)
    finally:
        screen.close()


if __name__ == "__main__":
    main()
