#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Goes through every window of the real program as a screen reader does, over AT-SPI, and opens each by its actions.

    walk_windows.py PROGRAM [--tell]

PROGRAM is a built Vaktor with its companions. Everything runs on a virtual screen, on a message bus of its own and in a
throw-away folder. Each control that can be seen has to have a name, a role that readers know, a value where it has one,
and, when it is off, words that say so. --tell prints what was found.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # seconds for what takes a moment on an idle machine

# What a reader finds that can be worked or read, and how it is worked.
WORKED = {
    "push button": "Press", "check box": "Toggle", "radio button": "Toggle", "toggle button": "Toggle",
    "combo box": "ShowMenu", "menu item": "Press", "check menu item": "Press", "radio menu item": "Press",
    "text": None, "password text": None, "slider": None, "spin button": None, "list": None, "tree": None,
    "tree table": None, "table": None, "list item": None,
}
HEARD = {"label", "image", "progress bar", "panel", "frame", "window", "dialog", "alert", "popup menu", "separator",
         "status bar"}
VALUED = {"slider", "spin button", "progress bar"}
# Inside of these the toolkit speaks for itself.
WHOLE = {"combo box", "list", "tree", "tree table", "table", "text", "spin button", "scroll bar", "password text"}

# Windows by their titles, with controls that each of them has at least: so a walk that finds nothing is no success.
MAIN = {"push button:Camera on", "check box:Alarm", "check box:Live Cam", "check box:Monitor", "check box:Options",
        "check box:eMail", "check box:FTP", "slider:Sensibility", "image:Alarm lamp", "image:Live cam lamp"}
PAGES = {
    "Monitor": {"check box:Record picture", "check box:Acoustic alarm", "check box:Send eMail", "text:Delay",
                "push button:Pitures", "push button:Update", "image:Small view"},
    "Options": {"push button:Video format", "push button:Video source", "push button:Sounds", "push button:Help",
                "check box:Watch as soon as I log in", "check box:English", "check box:Fran\u00e7ais", "combo box:Skins", "check box:Automatic sensibility"},
    "eMail": {"push button:More"},
    "FTP": {"push button:Send page", "push button:Test page", "push button:Try"},
}

# What the program has to tell by itself: a reader does not ask all the time.
TOLD = {("value", "slider:Sensibility"), ("value", "progress bar:Graphical representation of moving pixels"),
        ("description", "image:Small view"), ("description", "image:Camera picture"),
        ("description", "image:Alarm lamp"), ("disappearance", "panel:Monitor"), ("appearance", "panel:Options")}


class Screen:
    """A virtual screen, a bus and a throw-away folder; the surroundings of this process point to them."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="vaktor-reader-")
        folder = pathlib.Path(self.folder.name)
        (folder / "run").mkdir(mode=0o700)
        (folder / "data").mkdir()
        self.data = folder / "data"
        self.processes = []
        os.environ.update(HOME=str(folder), XDG_RUNTIME_DIR=str(folder / "run"), QT_QPA_PLATFORM="xcb",
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                          DBUS_SYSTEM_BUS_ADDRESS="unix:path=%s/none" % folder)
        os.environ.pop("WAYLAND_DISPLAY", None)
        readable, writable = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writable), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                   pass_fds=[writable])
        os.environ["DISPLAY"] = ":" + os.read(readable, 20).decode().strip()
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1",
                          "--address=unix:path=%s/bus" % folder], stdout=subprocess.PIPE, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen([str(part) for part in command], **options)
        self.processes.append(process)
        return process

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(20)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self.folder.cleanup()


class Reader:
    """What a screen reader sees of the program."""

    def __init__(self, program):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        self.atspi = Atspi
        self.program = program
        self.faults = []
        self.told = []
        Atspi.init()
        # What the program tells without being asked, by the name of what tells it.
        from gi.repository import GLib
        self.lost = GLib.Error
        self.events = set()
        self.menu = None
        self.loop = GLib.MainContext.default()
        self.listener = Atspi.EventListener.new(self.hear)
        for event in ("object:property-change:accessible-value", "object:property-change:accessible-description",
                      "object:state-changed:showing"):
            self.listener.register(event)

    def hear(self, event):
        if event.source is None:
            return
        kind = {"accessible-value": "value", "accessible-description": "description"}.get(
            event.type.rpartition(":")[2], "appearance" if event.detail1 else "disappearance")
        try:
            self.events.add((kind, event.source.get_role_name() + ":" + event.source.get_name()))
            # A menu is no child of the program: who did not hear it come does not find it.
            if kind == "appearance" and event.source.get_role_name() == "popup menu":
                self.menu = event.source
        except self.lost:
            pass  # it went before anybody could ask who it was

    def application(self):
        desktop = self.atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_name() == "Vaktor":
                return child
        return None

    def states(self, node):
        return {state.value_nick for state in node.get_state_set().get_states()}

    def children(self, node):
        for i in range(node.get_child_count()):
            child = node.get_child_at_index(i)
            if child is not None:
                yield child

    def seen(self, node):
        """The node and all that can be seen in it, but not what the toolkit's own controls are made of."""
        if not {"visible", "showing"} <= self.states(node):
            return
        yield node
        if node.get_role_name() in WHOLE:
            return
        for child in self.children(node):
            yield from self.seen(child)

    def windows(self):
        application = self.application()
        return [] if application is None else [window for window in self.children(application)
                                               if {"visible", "showing"} <= self.states(window)]

    def name(self, node):
        """A list is named by its label; everything else by its own name."""
        if node.get_role_name() == "combo box":
            for relation in node.get_relation_set():
                if relation.get_relation_type() == self.atspi.RelationType.LABELLED_BY:
                    return relation.get_target(0).get_name()
            return ""
        return node.get_name()

    def actions(self, node):
        action = node.get_action_iface()
        return [] if action is None else [self.atspi.Action.get_action_name(action, i)
                                          for i in range(self.atspi.Action.get_n_actions(action))]

    def await_that(self, what, ask):
        end = time.time() + PATIENCE
        while time.time() < end:
            answer = ask()
            if answer:
                return answer
            if self.program.poll() is not None:
                raise SystemExit("the program has ended")
            while self.loop.iteration(False):
                pass
            time.sleep(0.1)
        self.tell_tree()
        raise SystemExit("waited in vain for " + what)

    def window(self, title):
        return self.await_that("the window " + title, lambda: next(
            (window for window in self.windows() if window.get_name().startswith(title)), None))

    def find(self, role, name, window=None):
        for root in [window] if window is not None else self.windows():
            for node in self.seen(root):
                if node.get_role_name() == role and self.name(node) == name:
                    return node
        return None

    def do(self, role, name, action, window=None):
        node = self.await_that("%s %s" % (role, name), lambda: self.find(role, name, window))
        names = self.actions(node)
        if action not in names:
            raise SystemExit("%s %s cannot %s, only %s" % (role, name, action, names))
        self.atspi.Action.do_action(node.get_action_iface(), names.index(action))

    def fault(self, where, node, what):
        self.faults.append("%s: %s \"%s\" %s" % (where, node.get_role_name(), self.name(node), what))

    def look(self, where, node):
        """Holds one control to what it owes; returns how it is known."""
        role, name, states = node.get_role_name(), self.name(node), self.states(node)
        value = node.get_value_iface()
        self.told.append("  %s: %s \"%s\" | %s | %s" % (where, role, name, node.get_description().replace("\n", " / "),
                                                       self.actions(node)))
        if role not in WORKED and role not in HEARD:
            # What scrolls its contents by keys is a filler in every program.
            if (name or node.get_description() or "focusable" in states) and node.get_child_count() == 0:
                self.fault(where, node, "has words or the focus and no role")
            return None
        inside = node.get_parent().get_role_name() if node.get_parent() is not None else ""
        if role in WORKED or role in {"image", "progress bar", "window", "frame", "dialog"}:
            if not name.strip() and inside != "alert":  # the picture of a message repeats what its words say
                self.fault(where, node, "has no name")
        if role in WORKED and "enabled" in states and "focusable" not in states and "menu" not in role:
            self.fault(where, node, "is not reached by keys")
        if WORKED.get(role) and "enabled" in states and WORKED[role] not in self.actions(node):
            self.fault(where, node, "cannot be worked")
        if role in VALUED and (value is None or self.atspi.Value.get_minimum_value(value) >=
                               self.atspi.Value.get_maximum_value(value)):
            self.fault(where, node, "has no value")
        if role in WORKED and "enabled" not in states and "sensitive" not in states and not node.get_description():
            self.fault(where, node, "is off and does not say why")
        return role + ":" + name

    def walk(self, window, expected, ours=True):
        """A window of the toolkit's is heard as it is: what it lacks is not ours to mend."""
        where, faults = window.get_name(), len(self.faults)
        found = {self.look(where, node) for node in self.seen(window)}
        if not ours:
            del self.faults[faults:]
        for known in sorted(expected - found):
            self.faults.append("%s: lacks %s" % (where, known))

    def tell_tree(self):
        for window in self.windows():
            for node in self.seen(window):
                print("   ", node.get_role_name(), repr(self.name(node)), self.actions(node))


def visit_pages(reader, main):
    for page, controls in PAGES.items():
        reader.do("check box", page, "Toggle", main)
        known = next(known for known in sorted(controls) if known.startswith("push button")).partition(":")
        reader.await_that("the page " + page, lambda: reader.find(known[0], known[2], main))
        reader.walk(main, MAIN | controls)
        heard = {node.get_role_name() + ":" + reader.name(node) for node in reader.seen(main)}
        for covered in (set().union(*PAGES.values()) - controls) & heard:
            reader.faults.append("%s is heard while the page %s lies in front of it" % (covered, page))


def change_zone(reader, monitor):
    """The keys of the monitor, as the desktop would send them: the words of the picture follow."""
    picture = reader.find("image", "Camera picture", monitor)
    before = picture.get_description()
    if "whole picture" not in before:
        reader.faults.append("Monitor: the zone is not told: " + before)
    place = monitor.get_component_iface().get_extents(reader.atspi.CoordType.SCREEN)
    subprocess.run(["xdotool", "mousemove", str(place.x + 5), str(place.y + 5), "sleep", "0.2", "click", "1", "key",
                    "shift+Left", "shift+Up", "Right"], check=True)
    reader.await_that("the zone that the keys have made", lambda: "left 8, top 0" in picture.get_description())


def visit_menu(reader, window, picture, entry):
    """The menu of a view: opened, looked at, and its entry chosen."""
    reader.menu = None
    reader.do("image", picture, "ShowMenu", window)
    menu = reader.await_that("the menu of " + picture, lambda: reader.menu)
    items = [item for item in reader.seen(menu) if "menu item" in item.get_role_name()]
    for item in items:
        reader.look("menu of " + picture, item)
    chosen = next(item for item in items if item.get_name() == entry)
    reader.atspi.Action.do_action(chosen.get_action_iface(), 0)


def visit_file_dialog(reader, source):
    """The toolkit's own, in which a film is chosen."""
    reader.do("push button", "Browse...", "Press", source)
    dialog = reader.window("Choose a ")
    reader.walk(dialog, {"push button:Open", "push button:Cancel"}, ours=False)
    reader.do("push button", "Cancel", "Press", dialog)


def visit_night(reader, main, photos):
    """The timeline with what the armed alarm has just seen, and the player; whoever walks in comes every twenty seconds."""
    reader.await_that("a photo", lambda: any(photos.glob("*.jpg")))
    reader.do("push button", "Pitures", "Press", main)
    reader.do("push button", "Timeline", "Press", reader.window("Intrusions"))
    timeline = reader.window("Timeline")
    cards = reader.await_that("a card of an intrusion", lambda: next(
        (node for node in reader.seen(timeline) if node.get_role_name() == "list" and node.get_child_count()), None))
    reader.walk(timeline, {"push button:Close", "push button:Play", "push button:Save", "push button:Erase"})
    # The toolkit offers no action that chooses in a list.
    place = cards.get_child_at_index(0).get_component_iface().get_extents(reader.atspi.CoordType.SCREEN)
    subprocess.run(["xdotool", "mousemove", str(place.x + 20), str(place.y + 20), "sleep", "0.2", "click", "1"], check=True)
    reader.await_that("a chosen intrusion", lambda: "enabled" in reader.states(
        reader.find("push button", "Play", timeline)))
    reader.do("push button", "Play", "Press", timeline)
    reader.walk(reader.window("Intrusion at"), {"push button:Close"})


def visit_camera(reader, main):
    # The camera is off: a message says so.
    reader.do("check box", "Options", "Toggle", main)
    reader.do("push button", "Video format", "Press", main)
    message = reader.window("Be careful")
    reader.walk(message, {"push button:OK"})
    reader.do("push button", "OK", "Press", message)
    reader.do("push button", "Camera on", "Press", main)
    monitor = reader.window("Monitor")
    reader.await_that("the camera", lambda: reader.find("push button", "Camera off", main))
    reader.walk(monitor, {"image:Camera picture", "progress bar:Graphical representation of moving pixels"})
    change_zone(reader, monitor)
    for button, title, way_out in (("Video format", "Picture format", "Close"),
                                   ("Video source", "Picture source", "Close")):
        reader.do("push button", button, "Press", main)
        dialog = reader.window(title)
        reader.walk(dialog, {"push button:" + way_out})
        if title == "Picture source":
            visit_file_dialog(reader, dialog)
        reader.do("push button", way_out, "Press", dialog)
    reader.do("check box", "Monitor", "Toggle", main)
    visit_menu(reader, main, "Small view", "Pixel")
    visit_menu(reader, monitor, "Camera picture", "Full screen")
    reader.walk(reader.window("Moniteur"), set())


def visit(reader, photos):
    """Every window there is, opened the way a reader opens it."""
    reader.await_that("the main page", lambda: reader.find("push button", "Pitures"))
    main = next(window for window in reader.windows() if reader.find("push button", "Pitures", window))
    visit_pages(reader, main)

    reader.do("check box", "Options", "Toggle", main)
    reader.do("push button", "Sounds", "Press", main)
    reader.walk(reader.window("Alarm sound"), {"combo box:Select a sound", "push button:Choose a sound file",
                                               "push button:Listen"})
    reader.do("check box", "eMail", "Toggle", main)
    reader.do("push button", "More", "Press", main)
    reader.walk(reader.window("SMTP"), {"push button:Try", "check box:Without encryption"})
    reader.do("check box", "FTP", "Toggle", main)
    reader.do("push button", "Try", "Press", main)
    reader.walk(reader.window("Trial of the live page"), {"push button:Close"})

    reader.do("check box", "Monitor", "Toggle", main)
    reader.do("push button", "Pitures", "Press", main)
    gallery = reader.window("Intrusions")
    reader.walk(gallery, {"list:List of pictures", "push button:Refresh", "image:Shown picture"})
    reader.do("push button", "Choose Repertory", "Press", gallery)
    reader.walk(reader.window("R\u00e9pertoire"), {"tree:Dossiers", "push button:Valider", "push button:Cr\u00e9er"})

    visit_camera(reader, main)
    # Nobody here keeps the machine awake, and an armed alarm says so.
    reader.do("check box", "Alarm", "Toggle", main)
    sign = reader.await_that("the sign of the health", lambda: next(
        (node for node in reader.seen(main) if node.get_role_name() == "push button" and
         "list of what is wrong" in node.get_description()), None))
    reader.look("Vaktor", sign)
    reader.do("push button", sign.get_name(), "Press", main)
    reader.walk(reader.window("Health of the watch"), {"push button:Close"})
    visit_night(reader, main, photos)


def main():
    screen = Screen()
    try:
        (screen.data / "vaktor.ini").write_text('[%general]\nlangue="1"\nretard="1"\n\n[PHOTO]\nactif="1"\n')
        (screen.data / "vaktor.ini").chmod(0o600)
        program = screen.start([sys.argv[1], "/camera:test", "/dossier:%s" % screen.data])
        reader = Reader(program)
        visit(reader, screen.data / "intrus")
        for told in TOLD - reader.events:
            reader.faults.append("nothing was told of the %s of %s" % told)
        return 1 if reader.faults else 0
    finally:
        if "--tell" in sys.argv:
            print("\n".join(reader.told + sorted(map(str, reader.events))))
        print("%d controls looked at, %d faults" % (len(reader.told), len(reader.faults)))
        print("\n".join(dict.fromkeys(reader.faults)))
        screen.end()


if __name__ == "__main__":
    sys.exit(main())
