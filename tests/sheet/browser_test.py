"""The HTML sheet in a browser: it loads nothing and complains of nothing, its 3D turns, can be cut and hides bodies, and
it is printed on A4 without it. The words are the browser, the program and the folder of the sources; with a fourth one
the pictures are kept in that folder."""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from browser import Browser

CHROMIUM, VANZET, SOURCE = sys.argv[1:4]
KEPT = pathlib.Path(sys.argv[4]) if len(sys.argv) > 4 else None
CANVAS = "document.querySelector('.stage canvas')"
# A frame later the page has drawn what was asked of it before.
PICTURE = ("new Promise(done => requestAnimationFrame(() => requestAnimationFrame("
           f"() => done({CANVAS}.toDataURL()))))")
COLOURS = """(canvas => { const copy = document.createElement('canvas'); copy.width = canvas.width;
  copy.height = canvas.height; const to = copy.getContext('2d'); to.drawImage(canvas, 0, 0);
  return new Set(new Uint32Array(to.getImageData(0, 0, copy.width, copy.height).data.buffer)).size; })(%s)""" % CANVAS


def vanzet(folder, *words):
    subprocess.run([VANZET, *words], cwd=folder, check=True, stdout=subprocess.DEVNULL)


class SheetInBrowser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.folder = folder = pathlib.Path(cls.place.name)
        (folder / "jobs").mkdir()
        for name, job in [("bar job", "bar-job"), ("shaft", "shaft-steady-rest")]:
            vanzet(folder, "new", f"jobs/{name}")
            vanzet(folder, "define", f"{SOURCE}/examples/definitions/{job}.json", f"jobs/{name}")
        vanzet(folder, "sheet", "--all", "jobs", "--out", "out")
        cls.browser = Browser(CHROMIUM)

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.place.cleanup()

    def setUp(self):
        self.browser.requests.clear()
        self.browser.complaints.clear()

    def tearDown(self):
        self.assertEqual(self.browser.complaints, [])

    def open(self, name):
        self.browser.open(self.folder / "out" / name)

    def open_sheet(self):
        self.open("sheets/bar job.html")

    def picture(self):
        return self.browser.ask(PICTURE)

    def keep(self, name):
        if KEPT:
            self.browser.screenshot(KEPT / name)

    def test_loads_nothing(self):
        for name in ["sheets/bar job.html", "index.html"]:
            self.browser.requests.clear()
            self.open(name)
            self.assertEqual([each[:40] for each in self.browser.requests[1:] if not each.startswith("data:")], [], name)
            self.assertIn(name.split("/")[-1].replace(" ", "%20"), self.browser.requests[0])

    def test_forbids_what_a_text_could_ask_for(self):
        self.open_sheet()
        self.browser.ask("document.body.append(Object.assign(new Image(), {src: 'http://127.0.0.1:9/'}))")
        self.browser.ask("new Promise(done => setTimeout(done, 100))")
        self.assertTrue(any("Content Security Policy" in str(each) for each in self.browser.complaints))
        self.browser.complaints.clear()

    def test_turns_by_a_drag_and_comes_back(self):
        self.open_sheet()
        self.assertFalse(self.browser.ask("document.querySelector('.live').hidden"))
        first = self.picture()
        self.keep("sheet.png")
        self.browser.drag(".stage", 120, 40)
        turned = self.picture()
        self.keep("turned.png")
        self.assertNotEqual(turned, first)
        self.browser.drag(".stage", -60, 0)
        self.assertNotIn(self.picture(), [turned, first])
        self.browser.click("[data-view=iso]")
        self.assertEqual(self.picture(), first)

    def test_is_turned_by_keys(self):
        self.open_sheet()
        first = self.picture()
        self.browser.ask("document.querySelector('.stage').focus()")
        self.browser.press("ArrowRight")
        self.assertNotEqual(self.picture(), first)
        self.browser.press("Home")
        self.assertEqual(self.picture(), first)

    def test_is_cut_open_where_the_slider_says(self):
        self.open_sheet()
        whole = self.picture()
        self.browser.click(".cut")
        cut = self.picture()
        self.keep("cut.png")
        self.assertNotEqual(cut, whole)
        self.browser.ask("(e => { e.value = 60; e.dispatchEvent(new Event('input')); })(document.querySelector('.plane'))")
        self.assertNotIn(self.picture(), [cut, whole])
        self.browser.click(".cut")
        self.assertEqual(self.picture(), whole)

    def test_hides_and_shows_each_body(self):
        self.open_sheet()
        whole = self.picture()
        boxes = self.browser.ask("document.querySelectorAll('.bodies input').length")
        self.assertGreater(boxes, 5)
        for number in range(1, boxes + 1):
            self.browser.click(f".bodies label:nth-of-type({number}) input")
        self.picture()
        self.assertEqual(self.browser.ask(COLOURS), 1, "the background alone")
        for number in range(1, boxes + 1):
            before = self.picture()
            self.browser.click(f".bodies label:nth-of-type({number}) input")
            if number == 1:
                self.assertNotEqual(self.picture(), before)
        self.assertEqual(self.picture(), whole)

    def test_is_printed_on_a4_without_3d(self):
        self.open_sheet()
        self.browser.call("Emulation.setEmulatedMedia", media="print")
        shown = "getComputedStyle(document.querySelector('%s')).display"
        self.assertEqual(self.browser.ask(shown % ".live"), "none")
        self.assertEqual(self.browser.ask(shown % ".still"), "block")
        self.browser.call("Emulation.setEmulatedMedia", media="")
        file = (KEPT or self.folder) / "sheet.pdf"
        self.browser.print(file)
        facts = subprocess.run(["pdfinfo", file], check=True, capture_output=True, text=True).stdout
        width, height = map(float, re.search(r"Page size: +([\d.]+) x ([\d.]+)", facts).groups())
        self.assertAlmostEqual(width, 595.3, delta=1)
        self.assertAlmostEqual(height, 841.9, delta=1)
        text = subprocess.run(["pdftotext", file, "-"], check=True, capture_output=True, text=True).stdout
        for word in ["Set-up sheet: bar job", "Soft jaw 160", "Equipment in space"]:
            self.assertIn(word, text)
        self.assertNotIn("Cut open", text)

    def test_searches_the_index_and_leads_to_a_sheet(self):
        self.open("index.html")
        rows = "[...document.querySelectorAll('tbody tr')].filter(row => !row.hidden).map(row => row.cells[0].textContent)"
        self.assertEqual(self.browser.ask(rows), ["bar job", "shaft"])
        self.keep("index.png")
        self.browser.click(".search")
        self.browser.call("Input.insertText", text="JOB ba")
        self.assertEqual(self.browser.ask(rows), ["bar job"])
        self.assertEqual(self.browser.ask("document.querySelector('.count').textContent"), "1 / 2")
        before = self.browser.loads
        self.browser.click("tbody a")
        while self.browser.loads == before:
            self.browser.take()
        self.assertEqual(self.browser.ask("document.querySelector('h1').textContent"), "Set-up sheet: bar job")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
