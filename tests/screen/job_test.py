"""A change of a job by mouse and keys under a window manager: a command by its letters, the page of a row that
is double clicked, a position that is typed, and undo."""
from screen import Atspi, Program, below, click, dialog, find, keys, type_text, use, wait_for, windows

TITLE = "lathe - vanzet workbench"


def window():
    return next(top for top in windows() if top.get_name() == TITLE)


def shown(name):
    """The view of that name, while it is seen."""
    return find(window(), Atspi.Role.FILLER, name)


def activate():
    use("search", "--onlyvisible", "--name", TITLE, "windowactivate", "--sync")


def choose(letters):
    activate()
    keys("ctrl+shift+p")
    wait_for(lambda: len(windows()) > 1, "the list of commands")
    type_text(letters)
    keys("Return")
    wait_for(lambda: len(windows()) == 1, "the end of the list")


def cells(text):
    return [node for node in below(window()) if node.get_role() == Atspi.Role.TABLE_CELL and node.get_name() == text]


def main():
    with Program():
        activate()
        click(wait_for(lambda: cells("Billet"), "the billet of the definition")[0])
        keys("Right")
        wait_for(lambda: cells("42 mm"), "its values")
        choose("drawing only")
        wait_for(lambda: not shown("Equipment"), "the drawing alone")
        keys("F6")
        wait_for(lambda: shown("Equipment"), "both views")

        click(cells("Billet")[0])
        use("click", "--repeat", "2", "--delay", "50", "1")
        wait_for(dialog, "the dialog")
        wait_for(lambda: find(dialog(), Atspi.Role.TEXT, "A"), "the page of the billet")

        click(wait_for(lambda: find(dialog(), Atspi.Role.PUSH_BUTTON, "Pick in the drawing"), "the button of a pick"))
        line = wait_for(lambda: find(window(), Atspi.Role.TEXT, "X and Y"), "the line of the pick")
        click(line)
        type_text("-50 21,5")
        keys("Return")
        wait_for(lambda: dialog() and find(dialog(), Atspi.Role.TEXT, "A"), "the dialog after the pick")
        click(find(dialog(), Atspi.Role.PUSH_BUTTON, "Select"))
        keys("Escape")
        wait_for(lambda: not dialog(), "the end of the dialog")
        # The window has its size again, in which the values of the definition can be seen.
        wait_for(lambda: cells("43 mm"), "the diameter that was typed")

        activate()
        keys("ctrl+z")
        wait_for(lambda: cells("42 mm"), "the diameter before")


main()
