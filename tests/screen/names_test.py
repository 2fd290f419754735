"""No control that can be seen is without a name: those of the window, and of every page of the dialog, which
the keyboard visits."""
import sys

from screen import Atspi, Program, below, dialog, keys, windows

CONTROLS = {
    Atspi.Role.PUSH_BUTTON, Atspi.Role.TOGGLE_BUTTON, Atspi.Role.RADIO_BUTTON, Atspi.Role.CHECK_BOX,
    Atspi.Role.COMBO_BOX, Atspi.Role.TEXT, Atspi.Role.SPIN_BUTTON, Atspi.Role.SLIDER, Atspi.Role.TREE,
    Atspi.Role.TREE_TABLE, Atspi.Role.TABLE, Atspi.Role.LIST, Atspi.Role.PAGE_TAB, Atspi.Role.MENU,
    Atspi.Role.DIALOG, Atspi.Role.PROGRESS_BAR}
# The names of their parts are the texts that they show.
LISTS = {Atspi.Role.TREE, Atspi.Role.TREE_TABLE, Atspi.Role.TABLE, Atspi.Role.LIST, Atspi.Role.COMBO_BOX,
         Atspi.Role.MENU}
NODES = 34  # of the dialog's tree, all opened: each kind of page is among them
LEAST = 100  # different controls, or the bus knows only a part


def look(top, seen):
    for node in below(top, lambda node: node.get_role() in LISTS):
        if node.get_role() in CONTROLS:
            seen.add((top.get_name(), node.get_role_name(), node.get_name().strip()))


def main():
    seen = set()
    with Program() as program:
        for top in windows():
            look(top, seen)
        program.open_dialog()
        for _ in range(NODES):
            look(dialog(), seen)
            keys("Right", "Down")
    nameless = [control for control in seen if not control[2]]
    print(f"{len(seen)} controls, without a name: {nameless}")
    sys.exit(1 if nameless or len(seen) < LEAST else 0)


main()
