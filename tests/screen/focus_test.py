"""After a message box the keyboard is where the dialog puts it, also when a click of the mouse brought the box
up: the value that was refused is marked, so that what is typed replaces it."""
import sys

from screen import Atspi, Program, below, click, find, has, keys, type_text, wait_for, windows


def fill(page, name, text):
    click(find(page, Atspi.Role.TEXT, name))
    keys("ctrl+a")
    type_text(text)


def focused(top):
    return next((node for node in below(top) if has(node, Atspi.StateType.FOCUSED)), None)


def text_of(edit):
    return Atspi.Text.get_text(edit, 0, -1)


def refuse(dialog, values, letter):
    """Fills the page, presses its button by the mouse and closes the box by the keyboard; the value with that
    letter has the focus then."""
    for name, text in values:
        fill(dialog, name, text)
    before = len(windows())
    click(find(dialog, Atspi.Role.PUSH_BUTTON, "Select"))
    wait_for(lambda: len(windows()) > before, "the box")
    keys("Return")
    wait_for(lambda: len(windows()) == before, "the end of the box")
    edit = wait_for(lambda: focused(dialog), "a focus in the dialog")
    if edit.get_role() != Atspi.Role.TEXT or not edit.get_name().startswith(letter):
        sys.exit(f"the focus is at {edit.get_role_name()} '{edit.get_name()}'")
    type_text("7")
    wait_for(lambda: text_of(edit) == "7", "7 in the edit")


def main():
    with Program() as program:
        dialog = program.open_dialog()
        click(wait_for(lambda: find(dialog, Atspi.Role.TABLE_CELL, "Billet cylindrical"), "the billet's node"))
        wait_for(lambda: find(dialog, Atspi.Role.TEXT, "A"), "the page of the billet")
        refuse(dialog, [("A", "40"), ("E", "45")], "E")
        refuse(dialog, [("B", "abc")], "B")


main()
