#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The whole program beside Debian's `motion`: processor time per frame and peak memory, measured in turn.

    bench/whole_program.py [--rounds 3] [--seconds 12] [--warm 8] [--program PATH] [--keep]

Needs the packages of scripts/packages.txt and scripts/packages-bench.txt, and the program as ./run builds it.

What is measured: all threads' time on a processor (/proc/PID/task/*/schedstat, user and system, in nanoseconds) between
two moments of the steady state, divided by the frames that the clip gives in that time. Start-up is left out. It is
processor time, so other work on the machine disturbs it little, but it does disturb it (caches): the rounds take turns
and the median is told with the spread. Peak memory is VmHWM, start-up included.

Both play the same file at its own rate, from the file, in a loop. Ours looks at every frame; motion above 5 frames a
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


def clips(options):
    mjpeg = os.path.join(TOP, "build", "bench", "vtest_640x480_mjpeg.avi")
    os.makedirs(os.path.dirname(mjpeg), exist_ok=True)
    if not os.path.exists(mjpeg):
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", "-i", VTEST, "-vf",
                        "scale=640:480:force_original_aspect_ratio=increase:flags=bicubic,crop=640:480", "-r", "10",
                        "-pix_fmt", "yuvj420p", "-c:v", "mjpeg", "-q:v", "4", mjpeg + ".part.avi"], check=True)
        os.rename(mjpeg + ".part.avi", mjpeg)
    all_clips = [
        {"name": "vtest.avi 768x576, 10/s", "path": VTEST, "width": 768, "height": 576, "rate": 10, "goal": 0.60},
        {"name": "MJPEG 640x480, 10/s", "path": mjpeg, "width": 640, "height": 480, "rate": 10, "goal": 0.75},
    ]
    return [clip for clip in all_clips if options.only in clip["name"]]


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
    if "motion" not in median:
        return
    for name, values in median.items():
        if name != "motion":
            say(f"  {name + ' / motion':28s} CPU {values['cpu'] / median['motion']['cpu']:.3f} "
                f"(goal {clip['goal']:.2f}, windows hidden), peak memory "
                f"{values['peak'] / median['motion']['peak']:.3f} (goal 1.0)")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--seconds", type=float, default=12)
    parser.add_argument("--warm", type=float, default=8)
    parser.add_argument("--program", default=os.path.join(TOP, "build", "release", "Vaktor", "Vaktor"))
    parser.add_argument("--only", default="", help="only the clips whose name holds this text")
    parser.add_argument("--without", default="", help="leave out: motion, hidden or shown")
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
            kinds = {"motion": (lambda folder: start_motion(clip, folder), lambda pid: None),
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
