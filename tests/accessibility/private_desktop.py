"""An X display or a Wayland compositor, a session bus and an accessibility bus of this process's own."""

import atexit
import glob
import os
import shutil
import subprocess
import tempfile
import time

PROGRAMS = {"dbus-daemon": "dbus-daemon", "pdftotext": "poppler-utils"}
OF_SESSION = {
    "x11": {"Xvfb": "xvfb", "openbox": "openbox", "xdotool": "xdotool", "xprop": "x11-utils"},
    "wayland": {"sway": "sway", "wtype": "wtype", "wl-paste": "wl-clipboard"}}
WAYLAND_PLUGINS = "/usr/lib/*/qt6/plugins/platforms/libqwayland*"
NOBODY = 65534
PATIENCE = 60  # s: longer than the busiest machine takes.
BUS_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def missing_packages(session):
    missing = [package for program, package in {**PROGRAMS, **OF_SESSION[session]}.items()
               if not shutil.which(program)]
    if session == "wayland" and not glob.glob(WAYLAND_PLUGINS):
        missing.append("qt6-wayland")
    if not os.path.exists(BUS_LAUNCHER):
        missing.append("at-spi2-core")
    try:
        import pyatspi  # noqa: F401
    except ImportError:
        missing.append("python3-pyatspi")
    return missing


def wait_until(condition, what, seconds=PATIENCE):
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


def _start_x11():
    """An X server with a window manager: the first of which no other has taken the socket away."""
    manager = None
    while manager is None or manager.poll() is not None:
        read, write = os.pipe()
        _start(f"Xvfb -displayfd {write} -screen 0 1280x1024x24".split(), pass_fds=[write])
        os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
        manager = _start(["openbox", "--sm-disable"])
        wait_until(lambda: manager.poll() is not None or not subprocess.run(
            ["xdotool", "get_num_desktops"], capture_output=True).returncode, "it is managed")


def _start_wayland():
    """A Wayland compositor without a screen. As it refuses to be root, nobody runs it then."""
    folder = tempfile.mkdtemp(prefix="compositor-")
    atexit.register(shutil.rmtree, folder, ignore_errors=True)
    user = {}
    if os.geteuid() == 0:
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
        os.chown(folder, NOBODY, NOBODY)
    os.environ["SWAYSOCK"] = f"{folder}/control"
    _start(["sway", "--config", os.devnull], cwd=folder, **user,
           env={**os.environ, "HOME": folder, "XDG_RUNTIME_DIR": folder,
                "WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1",
                "WLR_RENDERER": "pixman"})
    wait_until(lambda: subprocess.run(["swaymsg", "-t", "get_version"], capture_output=True)
               .returncode == 0, "the compositor is there")
    os.environ["WAYLAND_DISPLAY"] = next(
        socket for socket in glob.glob(f"{folder}/wayland-*") if not socket.endswith(".lock"))
    _start(["wtype", "-s", "1000000000"])  # A keyboard that stays; other calls press its keys.


def bring_up(session):
    """Starts the desktop and makes it the one that this process and its children use."""
    home = tempfile.mkdtemp(prefix="desktop-")
    atexit.register(shutil.rmtree, home, ignore_errors=True)
    for variable in list(os.environ):
        if variable.startswith(("QT_", "XDG_", "WAYLAND_", "DBUS_", "AT_SPI_")):
            del os.environ[variable]
    os.environ.update(HOME=home, XDG_RUNTIME_DIR=home, LC_ALL="C.UTF-8", NO_AT_BRIDGE="0",
                      QT_ACCESSIBILITY="1",
                      QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                      CUPS_SERVER=f"{home}/no-printers")

    bus = _start(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                 stdout=subprocess.PIPE, text=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
    os.environ["QT_QPA_PLATFORM"] = "xcb" if session == "x11" else session
    {"x11": _start_x11, "wayland": _start_wayland}[session]()
    return home
