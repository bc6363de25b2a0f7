#!/usr/bin/env python3
"""How long the built program takes to have its window on the screen, with an empty home folder of
its own, in the form of rows that Measure.h tells.

  benchmarks/start.py [PROGRAM-FOLDER] [RUNS]"""

import os
import statistics
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "program"))

from desktop import Desktop  # noqa: E402

PROGRAM_FOLDER = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "../build/release/bin")
RUNS = int(sys.argv[2]) if len(sys.argv) > 2 else 9
EXAMPLE = os.path.join(HERE, "../data/examples/first.csd")


def milliseconds_to_window(desktop, *arguments):
    began = time.monotonic()
    program = desktop.start_program(*arguments)
    while not desktop.tell("xdotool", "search", "--onlyvisible", "--name", "ArdiphonPro"):
        assert program.poll() is None, "the program ended"
    took = 1000 * (time.monotonic() - began)
    program.kill()
    program.wait()
    desktop.processes.remove(program)
    return took


with Desktop(os.path.abspath(PROGRAM_FOLDER)) as desktop:
    for what, arguments in [("the chooser", []), ("a document", [os.path.abspath(EXAMPLE)])]:
        milliseconds_to_window(desktop, *arguments)  # warms the disk's cache
        times = [milliseconds_to_window(desktop, *arguments) for _ in range(RUNS)]
        for which, value in [("", statistics.median(times)), (", slowest", max(times))]:
            print(f"start with {what}{which}\t0\t{value:.0f}\tms\t0")
