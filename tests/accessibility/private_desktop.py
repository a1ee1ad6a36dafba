"""An X display, a session bus and an accessibility bus of this process's own."""

import atexit
import os
import shutil
import subprocess
import tempfile
import time

PROGRAMS = {"Xvfb": "xvfb", "dbus-daemon": "dbus-daemon", "openbox": "openbox",
            "xdotool": "xdotool", "pdftotext": "poppler-utils"}
BUS_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def missing_packages():
    missing = [package for program, package in PROGRAMS.items() if not shutil.which(program)]
    if not os.path.exists(BUS_LAUNCHER):
        missing.append("at-spi2-core")
    try:
        import pyatspi  # noqa: F401
    except ImportError:
        missing.append("python3-pyatspi")
    return missing


def wait_until(condition, what, seconds=10):
    """The first true value of condition, asked again and again for so many seconds at most."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"after {seconds} s still not: {what}")
        time.sleep(0.02)


def wait_for(expected, question):
    """Waits until the question's answer is the expected one."""
    try:
        wait_until(lambda: question() == expected, "")
    except AssertionError:
        answer = question()
        if answer != expected:
            raise AssertionError(f"expected {expected!r}\n  but got {answer!r}") from None


def _start(command, stdout=subprocess.DEVNULL, **options):
    process = subprocess.Popen(command, stdout=stdout, stderr=subprocess.DEVNULL, **options)

    def end():
        process.terminate()
        process.wait()
    atexit.register(end)
    return process


def bring_up():
    """Starts the desktop and makes it the one that this process and its children use."""
    home = tempfile.mkdtemp(prefix="desktop-")
    atexit.register(shutil.rmtree, home, ignore_errors=True)
    for variable in list(os.environ):
        if variable.startswith(("QT_", "XDG_", "WAYLAND_", "DBUS_", "AT_SPI_")):
            del os.environ[variable]
    os.environ.update(HOME=home, XDG_RUNTIME_DIR=home, LC_ALL="C.UTF-8", NO_AT_BRIDGE="0",
                      QT_QPA_PLATFORM="xcb", QT_ACCESSIBILITY="1",
                      QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                      CUPS_SERVER=f"{home}/no-printers")

    read, write = os.pipe()
    _start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
           pass_fds=[write])
    os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()

    bus = _start(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                 stdout=subprocess.PIPE, text=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
    _start(["openbox", "--sm-disable"])
    wait_until(lambda: subprocess.run(["xdotool", "get_num_desktops"], capture_output=True)
               .returncode == 0, "the window manager is there")
    return home
