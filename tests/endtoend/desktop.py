# SPDX-License-Identifier: GPL-3.0-or-later
"""The application on a desktop, as a user who sees what is on the screen and has a mouse and a keyboard.

Runs under tests/linux/with_desktop, which sets up that desktop.
"""
import os
import subprocess
import time

os.environ.update(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0")
subprocess.run(["dbus-update-activation-environment", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "NO_AT_BRIDGE"], check=True)

import gi  # noqa: E402

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE_SECONDS = 30


def until(condition, what):
    """What `condition` gives once that is true; what the screen tells comes in meanwhile."""
    context = GLib.MainContext.default()
    deadline = time.monotonic() + PATIENCE_SECONDS
    ticks = GLib.timeout_add(20, lambda: True)  # not only until the deadline, which may pass within the condition
    try:
        while time.monotonic() < deadline:
            found = condition()
            if found:
                return found
            context.iteration(True)
    finally:
        GLib.source_remove(ticks)
    raise AssertionError(f"never: {what}; there is: {', '.join(names())}")


def descendants(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child
            yield from descendants(child)


def shown(program=None):
    """All that is shown now, of one program or of every one."""
    desktop = Atspi.get_desktop(0)
    for one in filter(None, map(desktop.get_child_at_index, range(desktop.get_child_count()))):
        if program in (None, one.get_name()):
            yield from (node for node in descendants(one) if node.get_state_set().contains(Atspi.StateType.SHOWING))


def names():
    return [f'{node.get_role_name()} "{node.get_name()}"' for node in shown() if node.get_name()]


def look(name, role=None, program=None):
    """What is shown under that name now, or under any, on top of all; None if nothing is, or if it goes while we look."""
    try:
        return next((node for node in reversed(list(shown(program)))
                     if name in (None, node.get_name()) and role in (None, node.get_role_name())), None)
    except GLib.Error:
        return None


def find(name, role=None, program=None):
    return until(lambda: look(name, role, program), f'"{name}" is on the screen')


def gone(name, role=None):
    until(lambda: look(name, role) is None, f'"{name}" has gone')


def focus(title):
    """Gives a window the keyboard, as a window manager does for a new one."""
    subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", f"^{title}$", "windowfocus", "--sync"], check=True)


def mouse(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def settled(name, role=None, program=None):
    """What is shown under that name and where its middle is, once it stands still and takes presses."""
    place = None

    def stands_still():
        nonlocal place
        node = find(name, role, program)
        box = node.get_extents(Atspi.CoordType.SCREEN)
        now = (box.x + box.width // 2, box.y + box.height // 2)
        last, place = place, now
        return last == now and node.get_state_set().contains(Atspi.StateType.SENSITIVE) and node
    return until(stands_still, f'"{name}" can be pressed'), place


def press(name, role=None, program=None):
    """Clicks into the middle of what is shown under that name."""
    _, place = settled(name, role, program)
    mouse("mousemove", *place, "click", 1)


def actions(node):
    """The numbers of what a tool for the disabled can do with it, by name."""
    return {Atspi.Action.get_action_name(node, index): index for index in range(Atspi.Action.get_n_actions(node))}


def act(name, role, action="Press", program=None):
    """Does with what is shown under that name what it offers, with neither mouse nor keys."""
    node, _ = settled(name, role, program)
    assert Atspi.Action.do_action(node, actions(node)[action]), f'"{name}" does not {action}'


def set_text(name, text):
    """The same with a text field."""
    assert Atspi.EditableText.set_text_contents(find(name, "text"), text), f'"{name}" takes no text'


def type_text(text):
    mouse("type", "--delay", 5, text)


def key(*names):
    mouse("key", *names)
