"""What a screen reader is told of the program, over the desktop's accessibility bus."""

import re

BUS = "org.a11y.Bus"
ACCESSIBLE, VALUE, ACTION = (f"org.a11y.atspi.{part}" for part in ("Accessible", "Value", "Action"))
ROOT = "/org/a11y/atspi/accessible/root"
REFERENCE = re.compile(r"\('(:[^']+)', (?:objectpath )?'([^']+)'\)")
SHOWN, VISIBLE = 25, 30
STATES = {1: "active", 4: "checked", 11: "focusable", 12: "focused", 23: "selected"}


class Speech:
    """The tree of all that can be read out. An object is its program's name and its path."""

    def __init__(self, session):
        self.session = session
        answer = session.ask("gdbus", "call", "--session", "--dest", BUS, "--object-path",
                             "/org/a11y/bus", "--method", f"{BUS}.GetAddress")
        self.address = answer.strip()[2:-3]
        self.root = ("org.a11y.atspi.Registry", ROOT)

    def children(self, thing):
        return REFERENCE.findall(self._call(thing, f"{ACCESSIBLE}.GetChildren"))

    def name(self, thing):
        return self._property(thing, ACCESSIBLE, "Name")

    def description(self, thing):
        return self._property(thing, ACCESSIBLE, "Description")

    def role(self, thing):
        return self._call(thing, f"{ACCESSIBLE}.GetRoleName")[2:-3]

    def states(self, thing):
        """The numbers of what holds for it."""
        words = [int(word) for word in re.findall(r"\d+", self._call(
            thing, f"{ACCESSIBLE}.GetState").replace("uint32", ""))]
        return {bit + 32 * place for place, word in enumerate(words)
                for bit in range(32) if word >> bit & 1}

    def value(self, thing):
        return self._property(thing, VALUE, "CurrentValue")

    def actions(self, thing):
        return re.findall(r"\('([^']*)', ", self._call(thing, f"{ACTION}.GetActions"))

    def act(self, thing, action):
        self._call(thing, f"{ACTION}.DoAction", str(self.actions(thing).index(action)))

    def find(self, thing, is_it):
        """The first below it that is shown and that the condition on name and role holds for."""
        for child in self.children(thing):
            if not {SHOWN, VISIBLE} <= self.states(child):
                continue
            found = child if is_it(self.name(child), self.role(child)) else self.find(child, is_it)
            if found:
                return found
        return None

    def lines(self, thing, depth=0):
        """Everything shown below it, a line for each that has a name, indented as it lies."""
        for child in self.children(thing):
            states = self.states(child)
            if not {SHOWN, VISIBLE} <= states:
                continue
            name = self.name(child)
            if name:
                yield "  " * depth + self._line(child, name, states)
            yield from self.lines(child, depth + 1 if name else depth)

    def _line(self, thing, name, states):
        role, description = self.role(thing), self.description(thing)
        said = [name, role, *(word for state, word in STATES.items() if state in states)]
        if role == "spin box":
            said.append(f"value {self.value(thing)}")
        if description not in ("", name):
            said.append(f"({description})")
        actions = self.actions(thing)
        return ", ".join(said) + (f" [{', '.join(actions)}]" if actions else "")

    def _property(self, thing, interface, key):
        answer = self._call(thing, "org.freedesktop.DBus.Properties.Get", interface, key)
        return answer.strip()[2:-3].strip("'\"")

    def _call(self, thing, method, *arguments):
        program, path = thing
        return self.session.ask("gdbus", "call", "--address", self.address, "--dest", program,
                                "--object-path", path, "--method", method, *arguments).strip()
