#!/usr/bin/python3
"""Reads the program through the accessibility bus and works it by the keyboard alone.

usage: accessibility_test.py x11|wayland PROGRAM [unittest argument...]
"""

import os
import re
import subprocess
import sys
import unittest

import private_desktop
from private_desktop import PATIENCE, wait_for, wait_until

SKIPPED = 77

if __name__ == "__main__":
    SESSION = sys.argv.pop(1)
    missing = private_desktop.missing_packages(SESSION)
    if missing:
        print("Skipped: the machine lacks the packages", " ".join(missing))
        sys.exit(SKIPPED)
    private_desktop.bring_up(SESSION)

from program import Program, find, has, line_at, role_of, text_of, walk  # noqa: E402
import pyatspi  # noqa: E402
from gi.repository import GLib  # noqa: E402

# Boxes that only hold controls together; assistive tools pass over them.
STRUCTURE = ("filler", "panel", "separator")
# Not on screen until their menu opens, but there to be read.
IN_MENUS = ("popup menu", "menu item", "separator", "list", "list item")


def labels_of(field):
    """The texts of the labels to which a field is tied."""
    return [relation.getTarget(i).name for relation in field.getRelationSet()
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY
            for i in range(relation.getNTargets())]


class Assistive(unittest.TestCase):
    BINARY = None

    def setUp(self):
        self.program = Program(self.BINARY)
        self.addCleanup(self.program.kill)

    def open_counts(self):
        self.program.choose("check box", "Additional elements")
        return self.program.window("Additional Elements")

    def open_editor(self, row_name):
        self.program.choose("combo box", "Edit isotopes")
        self.program.press(*row_name, "Return")
        return self.program.window("Edit Selected Element")

    def check_names(self, window, fields, description=""):
        for node in walk(window):
            role = role_of(node)
            self.assertNotIn(role, ("", "invalid", "unknown"), node)
            offered = has(node, pyatspi.STATE_VISIBLE) or role in IN_MENUS
            if offered and role not in STRUCTURE:
                self.assertTrue(node.name.strip(), f"a nameless {role} in {window.name!r}")
        for name in fields:
            field = find(window, "text", name)
            self.assertIsNotNone(field, name)
            self.assertEqual(labels_of(field), [name])
            self.assertEqual(field.description, description.format(name))

    def test_every_control_has_its_name(self):
        program = self.program
        self.check_names(program.main, ["Mass:"])
        counts = self.open_counts()
        self.check_names(counts, ["F", "Cl", "Br", "I", "Si", "P", "S", "X", "Xx"],
                         "number of {} atoms")
        editor = self.open_editor("Xx")
        self.check_names(editor, ["Name", "Unit mass", "Exact mass", "Valence", "%(M+1)/M",
                                  "%(M+2)/M"], "{} of Xx")
        program.fill("Name", "Na")
        program.choose("button", "Change")
        program.window("Additional Elements")
        self.check_names(counts, ["F", "Cl", "Br", "I", "Si", "P", "S", "X", "Na"],
                         "number of {} atoms")
        program.choose("button", "Show isotopes")
        self.check_names(program.window("Isotopes"), [])
        program.press("ctrl+u")
        update = program.window("Update")
        self.check_names(update, [])
        self.assertIsNotNone(find(update, "text", "Download location"))
        result = ("Web connection was unsuccessful.\n"
                  "Please check network or use a browser to access link.")
        self.assertIsNotNone(find(update, "label", result))
        wait_for(" ".join(result.split()), program.last_said)

    def test_tells_what_a_command_came_to(self):
        program = self.program
        for mass, words in {"14": "2 combinations listed.", "1": "1 combination listed.",
                            "0": "Insufficient mass remaining for C, H, N, or O."}.items():
            program.type(mass)
            program.press("Return")
            wait_for(f"Mass {mass}: {words}", program.last_said)
        program.press("Escape")
        wait_for("The results were cleared.", program.last_said)
        for key, words in {"ctrl+z": "The results are back.", "ctrl+Z": "The results were cleared."
                           }.items():
            program.press(key)
            wait_for(words, program.last_said)
        program.fill("Mass:", "1")
        program.choose("check box", "Apply nitrogen rule")
        wait_for("Mass 1, nitrogen rule applied: There are no valid combinations.",
                 program.last_said)
        self.open_counts()
        program.fill("F", "1")
        program.choose("button", "Run")
        words = "Mass 1: Insufficient mass remaining for C, H, N, or O."
        wait_for(words, program.last_said)
        self.assertEqual(program.active().name, "Peakwright")
        program.press("ctrl+u")
        wait_until(lambda: program.last_said().startswith("Web"), "the check has told its result")
        self.assertEqual(program.said.count(words), 1)

    def test_menus_tell_their_names_as_they_follow_one_another(self):
        program = self.program
        program.tab_to("button", "Run")
        for key, *names in (("F10", "File"), ("Down", "File", "Print"), ("Right", "Edit"),
                            ("Down", "Edit", "Undo"), ("Left", "File"), ("Escape", "Run"),
                            ("F10", "File"), ("Down", "Run", "File", "Print")):
            program.press(key)
            wait_for(names, lambda: program.last_reached(len(names)))

    @unittest.skipIf("WAYLAND_DISPLAY" in os.environ, "there the compositor draws the frames")
    def test_panels_ask_for_frames_without_buttons(self):
        self.open_counts()
        panel = subprocess.check_output(["xdotool", "getactivewindow"])
        hints = subprocess.check_output(["xprop", "-id", panel.strip(), "_MOTIF_WM_HINTS"])
        self.assertTrue(hints.endswith(b"= 0x3, 0x4, 0xa, 0x0, 0x0\n"), hints)

    def test_table_gives_its_cells(self):
        program = self.program
        self.open_counts()
        program.choose("button", "Show isotopes")
        isotopes = program.window("Isotopes")
        table = find(isotopes, "table", "Isotopes").queryTable()
        self.assertEqual((table.nRows, table.nColumns), (13, 6))
        headings = [table.getColumnHeader(column).name for column in range(6)]
        program.tab_to("table", "Isotopes")
        program.press("ctrl+Home", *["Down"] * 5)
        wait_for(True, lambda: has(table.getAccessibleAt(5, 0), pyatspi.STATE_SELECTED))
        cells = [table.getAccessibleAt(5, column).name for column in range(6)]
        self.assertEqual(cells, ["Cl", "35", "34.96885", "1", "0", "32.40"])
        self.assertEqual(table.getRowHeader(5).name, "Cl")
        program.press("Return")
        editor = program.window("Edit Selected Element")
        self.assertEqual([text_of(find(editor, "text", name)) for name in headings], cells)

    def test_results_are_read_line_by_line(self):
        program = self.program
        text = program.results.queryText()
        listing = program.list_anew("100")
        self.assertTrue(has(program.results, pyatspi.STATE_MULTI_LINE))
        self.assertEqual(text.getAttributeRun(0)[1:], [0, len(listing)])
        program.press("ctrl+Home", "Down", "Down")
        wait_for(0, text.getNSelections)
        word = listing.index("RDB")
        self.assertEqual(text.getTextAtOffset(word, pyatspi.TEXT_BOUNDARY_WORD_START),
                         ("RDB\n", word, word + 4))
        self.assertGreaterEqual(text.getCharacterExtents(word + 3, pyatspi.DESKTOP_COORDS)[2], 0)
        mass = find(program.main, "text", "Mass:").queryText()
        for control, offset in (text, word), (mass, 1):
            left, top, *_ = control.getCharacterExtents(offset, pyatspi.DESKTOP_COORDS)
            self.assertEqual(control.getOffsetAtPoint(left + 2, top + 2, pyatspi.DESKTOP_COORDS),
                             offset)
        mass.addSelection(1, 2)
        self.assertEqual(mass.getSelection(0), (1, 2))
        program.press("shift+Down", "shift+Down")
        rows = "".join(listing.splitlines(keepends=True)[2:4])
        wait_until(lambda: text.getNSelections() == 1 and
                   text.getText(*text.getSelection(0)) == rows, "two rows are selected")

        program.press("Escape")
        program.choose("button", "More info")
        wait_until(lambda: text_of(program.results).endswith("each formula.\n\n"),
                   "the explanation is there")
        program.tab_to("text", "Results")
        program.press("ctrl+Home")
        offset = 0
        while offset < text.characterCount:
            wait_for(offset, lambda: text.caretOffset)
            line, start, end = line_at(text, offset)
            self.assertEqual((line, start), (text.getText(offset, end), offset))
            self.assertGreater(end, offset)
            offset = end
            program.press("Down")

    def test_long_changes_are_told_by_their_beginnings(self):
        program = self.program
        told = []

        def note(event):
            if event.source == program.results:
                told.append((event.type.minor, event.any_data))
        pyatspi.Registry.registerEventListener(note, "object:text-changed")
        self.addCleanup(pyatspi.Registry.deregisterEventListener, note, "object:text-changed")

        def expect_told(*change):
            def heard():
                while GLib.MainContext.default().iteration(False):
                    pass
                return change in told
            wait_until(heard, change)
            self.assertTrue(all(0 < len(text) <= 4096 for _, text in told))
        expect_told("insert", program.list_anew("1000")[:4096])
        program.press("ctrl+a", "x")
        expect_told("delete", " " * 4096)
        expect_told("insert", "x")
        program.press("Escape")
        expect_told("delete", " ")

    def test_session_by_keyboard(self):
        program = self.program
        listing = program.list_anew("58")
        self.assertEqual(program.printed(), listing.split())
        program.press("ctrl+q")
        self.assertEqual(program.process.wait(PATIENCE), 0)


@unittest.skipUnless("WAYLAND_DISPLAY" in os.environ, "needs a Wayland session")
class WaylandSession(unittest.TestCase):
    def test_session(self):
        program = Program(Assistive.BINARY)
        self.addCleanup(program.kill)
        for mass in "59", "1662":
            listing = program.list_anew(mass)
            program.press("ctrl+a", "ctrl+c", "Escape")
            wait_for("", lambda: text_of(program.results))
            copied = subprocess.run(["wl-paste", "--no-newline"], capture_output=True).stdout
            self.assertTrue(copied == listing.encode())
            program.press("ctrl+v")
            wait_until(lambda: text_of(program.results) == listing, "it is pasted")
        program.choose("check box", "Additional elements")
        program.window("Additional Elements")
        program.choose("combo box", "Edit isotopes")
        program.press("X", "Return")
        program.window("Edit Selected Element")
        tree = subprocess.run(["swaymsg", "-rt", "get_tree"], capture_output=True, text=True)
        self.assertEqual(re.findall(r'"app_id": "(.*?)"', tree.stdout), ["peakwright"] * 3)
        program.press("ctrl+p")
        program.window("Page Setup")
        program.press("Return")
        program.window("Print")


if __name__ == "__main__":
    Assistive.BINARY = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
