"""Assistive technology for tests: sees a program by roles and names only, acts, and listens.

Runs in a process of its own, with the system's Python, which knows the libraries. Reads what to do
as lines of JSON, and answers each with a line of JSON; what it hears meanwhile comes in lines that
begin with "heard".
"""
import json
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

EVENTS = ("object:state-changed:focused", "object:property-change:accessible-name",
          "object:property-change:accessible-description")
STATES = (Atspi.StateType.FOCUSED, Atspi.StateType.SELECTED, Atspi.StateType.CHECKED,
          Atspi.StateType.ENABLED)


def described(thing):
    """What a user is told of a thing."""
    states = thing.get_state_set()
    return {"role": thing.get_role_name(), "name": thing.get_name(),
            "description": thing.get_description(),
            "states": [state.value_nick for state in STATES if states.contains(state)]}


def everything(thing):
    """The thing and all in it that is to be seen, from top to bottom."""
    yield thing
    for index in range(thing.get_child_count()):
        child = thing.get_child_at_index(index)
        if child and child.get_state_set().contains(Atspi.StateType.VISIBLE):
            yield from everything(child)


def windows(title):
    for index in range(Atspi.get_desktop(0).get_child_count()):
        program = Atspi.get_desktop(0).get_child_at_index(index)
        if program:
            program.set_cache_mask(Atspi.Cache.NONE)  # not all that changes is told
        for place in range(program.get_child_count() if program else 0):
            window = program.get_child_at_index(place)
            if window and window.get_name() == title:
                yield window


def find(window, role, name):
    for top in windows(window):
        for thing in everything(top):
            if thing.get_role_name() == role and thing.get_name() == name:
                return thing
    raise LookupError(f"no {role} “{name}” in “{window}”")


class Assistant:
    def tree(self, window):
        return [described(thing) for top in windows(window) for thing in everything(top)]

    def describe(self, window, role, name):
        return described(find(window, role, name))

    def press(self, window, role, name):
        return find(window, role, name).get_action_iface().do_action(0)

    def focus(self, window, role, name):
        return find(window, role, name).get_component_iface().grab_focus()

    def set_number(self, window, role, name, number):
        return find(window, role, name).get_value_iface().set_current_value(number)

    def choose(self, window, role, name, index):
        return find(window, role, name).get_selection_iface().select_child(index)


def hear(event):
    if event.type.startswith("object:state-changed") and not event.detail1:
        return
    try:
        what = described(event.source)
    except GLib.Error:
        return  # it has gone meanwhile
    print("heard", json.dumps({"event": event.type} | what), flush=True)


def obey(source, _condition):
    line = source.readline()
    if not line:
        Atspi.event_quit()
        return False
    verb, *arguments = json.loads(line)
    try:
        answer = {"answer": getattr(Assistant(), verb)(*arguments)}
    except (LookupError, GLib.Error) as error:
        answer = {"error": str(error)}
    print(json.dumps(answer), flush=True)
    return True


listener = Atspi.EventListener.new(hear)
for kind in EVENTS:
    listener.register(kind)
GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, obey)
print(json.dumps({"answer": "listening"}), flush=True)
Atspi.event_main()
