"""The running window on a display with a window manager, as a person has it: what the bus for readers of the
screen says of it, and clicks and keys of the display. The words of a program are the folder of the binaries
and a script for the dialog."""
import os
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE = 60  # seconds


def wait_for(find, what):
    """The first true answer of `find`."""
    end = time.time() + PATIENCE
    while time.time() < end:
        found = find()
        if found:
            return found
        time.sleep(0.1)
    sys.exit(f"{what}: not within {PATIENCE} seconds")


def children(node):
    return [child for child in (node.get_child_at_index(i) for i in range(node.get_child_count())) if child]


def has(node, state):
    return node.get_state_set().contains(state)


def below(node, is_closed=lambda node: False):
    """The node and all that can be seen below it, with their paths; nothing below a closed one."""
    if not has(node, Atspi.StateType.SHOWING):
        return
    yield node
    for child in [] if is_closed(node) else children(node):
        yield from below(child, is_closed)


def windows():
    apps = [app for app in children(Atspi.get_desktop(0)) if app.get_name() == "vanzet"]
    return children(apps[0]) if apps else []


def dialog():
    """The equipment dialog."""
    return next((top for top in windows() if top.get_name() == "Equipment Definition"), None)


def find(top, role, name):
    """The first one whose name begins so."""
    return next((node for node in below(top) if node.get_role() == role and node.get_name().startswith(name)), None)


def use(*words):
    subprocess.run(["xdotool", *words], check=True, timeout=PATIENCE)


def has_manager():
    return subprocess.run(["xdotool", "get_num_desktops"], stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode == 0


def keys(*words):
    use("key", *words)


def type_text(text):
    use("type", "--", text)


def point_at(node):
    box = node.get_extents(Atspi.CoordType.SCREEN)
    use("mousemove", str(box.x + min(box.width, 60) // 2), str(box.y + box.height // 2))


def click(node):
    point_at(node)
    use("click", "1")


class Program:
    """The window with the sample project in front of a window manager, until the block ends. The project has the
    job of the script, or is as it was made."""

    def __init__(self, has_job=True):
        self.has_job = has_job

    def __enter__(self):
        folder, script = sys.argv[1:]
        self.home = tempfile.TemporaryDirectory()
        project = os.path.join(self.home.name, "lathe")
        self.environment = dict(os.environ, HOME=self.home.name, XDG_CONFIG_HOME=self.home.name,
                                XDG_RUNTIME_DIR=self.home.name, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                                QT_QPA_PLATFORM="offscreen")
        self.run("new", "lathe", "--sample", "mill-turn")
        if self.has_job:
            self.run("script", "lathe", script)
        on_display = dict(self.environment, QT_QPA_PLATFORM="xcb")
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        wait_for(has_manager, "the window manager")
        self.window = subprocess.Popen([f"{folder}/vanzet-window", project], env=on_display)
        wait_for(lambda: any(top.get_name().startswith("lathe") for top in windows()), "the window")
        return self

    def __exit__(self, *_):
        for process in (self.window, self.manager):
            process.kill()
            process.wait()
        self.home.cleanup()

    def run(self, *words):
        """What a command of the command line prints, with the folder of the projects as the current one."""
        return subprocess.run([f"{os.path.abspath(sys.argv[1])}/vanzet", *words], env=self.environment, cwd=self.home.name,
                              check=True, stdout=subprocess.PIPE, text=True).stdout

    def open_dialog(self):
        use("search", "--sync", "--onlyvisible", "--name", "lathe - vanzet workbench", "windowactivate", "--sync",
            "key", "ctrl+d")
        return wait_for(dialog, "the dialog")
