"""The job of docs/guide/first-job.md as its steps say: nodes, lists, values and buttons by mouse and keys, in a
project as it was made. The definition is then that of the script which the guide names as the same job."""
import json
import sys
import time

from screen import Atspi, Program, below, click, dialog, find, keys, point_at, type_text, use, wait_for

CHOOSE = "Select parametric clamp device"


def cells():
    """The nodes of the tree that are seen whole."""
    tree = find(dialog(), Atspi.Role.TREE, "Equipment")
    room = tree.get_extents(Atspi.CoordType.SCREEN)

    def is_whole(cell):
        box = cell.get_extents(Atspi.CoordType.SCREEN)
        return box.y >= room.y and box.y + box.height <= room.y + room.height

    return [cell for cell in below(tree) if cell.get_role() == Atspi.Role.TABLE_CELL and is_whole(cell)]


def node(*path):
    """The node of the tree below the others of the path, all of which can be seen."""
    left = list(path)
    for cell in cells():
        # What the node holds can follow the name.
        if cell.get_name().split(",")[0] == left[0]:
            left.pop(0)
            if not left:
                return cell
    return None


def scroll_to(*path):
    """Turns the wheel over the tree until the node can be seen."""
    if not node(*path):
        point_at(cells()[len(cells()) // 2])
        use("click", "5")
    return node(*path)


def select(*path):
    click(wait_for(lambda: scroll_to(*path), " > ".join(path)))


def control(role, name):
    return wait_for(lambda: find(dialog(), role, name), name)


def press(name):
    click(control(Atspi.Role.PUSH_BUTTON, name))


def opens(device):
    """A click on the box of the page; false while its list is not seen after a moment."""
    click(control(Atspi.Role.COMBO_BOX, "Device"))
    end = time.time() + 5
    while time.time() < end:
        if find(dialog(), Atspi.Role.LIST_ITEM, device):
            return True
        time.sleep(0.1)
    return False


def choose(device):
    """Opens the list of devices of the page and goes down to the one of that name."""
    wait_for(lambda: opens(device), device)
    listed = [each.get_name() for each in below(dialog()) if each.get_role() == Atspi.Role.LIST_ITEM]
    keys("Home", *["Down"] * listed.index(device), "Return")
    control(Atspi.Role.COMBO_BOX, device)


def fill(values):
    """Types values; several of one name are from above to below."""
    for at, (name, text) in enumerate(values):
        before = sum(1 for other, _ in values[:at] if other == name)
        click(wait_for(lambda: edits(name)[before:], name)[0])
        keys("ctrl+a")
        type_text(text)


def edits(name):
    found = [each for each in below(dialog()) if each.get_role() == Atspi.Role.TEXT and each.get_name().startswith(name)]
    return sorted(found, key=lambda each: each.get_extents(Atspi.CoordType.SCREEN).y)


def take(device, *path):
    select(*path)
    choose(device)
    store(CHOOSE, *path)


def store(button, *path):
    """Presses the button of a page; its node is bold then, which readers of the screen hear."""
    press(button)
    wait_for(lambda: node(*path).get_name() == path[-1] + ", defined", path[-1])


def define():
    take("Chuck 160", "Clampdevice", "Mainspindle", "Chuck")
    take("Soft jaw 160", "Clampdevice", "Mainspindle", "Chuck", "Jaw")
    take("Collet D42", "Clampdevice", "Subspindle", "Collet")
    select("Billet", "Mainspindle", "Billet cylindrical")
    fill([("A", "42"), ("B", "50"), ("C", "2"), ("D", "3"), ("F", "1000")])
    store("Select", "Billet", "Mainspindle", "Billet cylindrical")
    select("Root Datum", "Datum")
    fill([("(A) Clamping out", "60"), ("Origin Translation", "20"), ("(B) Clamping out", "40"), ("Origin Translation", "-15")])
    store("Select", "Root Datum", "Datum")
    press("OK")
    wait_for(lambda: not dialog(), "the end of the dialog")


def main():
    with Program(has_job=False) as program:
        program.open_dialog()
        define()
        program.run("new", "second")
        program.run("script", "second", sys.argv[2])
        by_hand, by_script = (json.loads(program.run("show", project, "--json")) for project in ("lathe", "second"))
        if by_hand != by_script:
            sys.exit(f"by hand: {by_hand}\nby the script: {by_script}")


main()
