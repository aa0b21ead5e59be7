#!/usr/bin/python3
"""What a screen reader sees of a program, and what it can do there, over AT-SPI.

    screen_reader.py PID list           each object: x y width height, role, states, name,
                                        description
    screen_reader.py PID focus          gives the focus to each object that can take it, in turn
    screen_reader.py PID press NAME     presses the button of that name
    screen_reader.py PID hear FILE      makes the file once it listens, then waits: the role and the
                                        name of the first thing that comes up by itself

Fields of a line stand between tabs; x and y count from the screen's corner. Status 1 if the program
or the button isn't there.
"""
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

STATES = {
    Atspi.StateType.FOCUSABLE: "focusable",
    Atspi.StateType.SHOWING: "showing",
}


def program(pid):
    """The program joins the bus a moment after its start."""
    for _ in range(200):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == pid:
                return child
        time.sleep(0.05)
    sys.exit("The program isn't on the accessibility bus.")


def objects(parent):
    for i in range(parent.get_child_count()):
        child = parent.get_child_at_index(i)
        if child is None:
            continue
        yield child
        yield from objects(child)


def states(thing):
    held = thing.get_state_set()
    return ",".join(name for state, name in STATES.items() if held.contains(state))


def list_objects(top):
    for thing in objects(top):
        if "Component" not in thing.get_interfaces():
            continue
        box = Atspi.Component.get_extents(thing, Atspi.CoordType.SCREEN)
        print(box.x, box.y, box.width, box.height, thing.get_role_name(), states(thing),
              thing.get_name(), thing.get_description(), sep="\t")


def focus_each(top):
    for thing in objects(top):
        if states(thing) == "focusable,showing":
            Atspi.Component.grab_focus(thing)


def press(top, name):
    for thing in objects(top):
        if thing.get_name() == name and thing.get_role() == Atspi.Role.PUSH_BUTTON:
            Atspi.Action.do_action(thing, 0)
            return
    sys.exit("There is no such button.")


def hear(top, listening):
    """What Orca says by itself: a notification that comes to be seen."""
    def tell(event):
        if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
            print(event.source.get_role_name(), event.source.get_name(), sep="\t")
            Atspi.event_quit()

    listener = Atspi.EventListener.new(tell)
    listener.register("object:state-changed:showing")
    open(listening, "w").close()
    GLib.timeout_add_seconds(20, Atspi.event_quit)  # nothing was said
    Atspi.event_main()


def main(pid, act, *arguments):
    # A loaded machine may take its time (milliseconds: of a call, of a program that starts).
    Atspi.set_timeout(20000, 30000)
    {"list": list_objects, "focus": focus_each, "press": press, "hear": hear}[act](program(int(pid)), *arguments)


if __name__ == "__main__":
    main(*sys.argv[1:])
