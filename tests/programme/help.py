# SPDX-License-Identifier: GPL-3.0-or-later
"""Help on the real program: one viewer beside the game, which goes on; silence where there is none; and
a viewer that takes neither bad files nor anything from outside."""
import os
import pathlib
import shutil
import signal
import socket
import struct
import time
import unittest
import zlib
from types import SimpleNamespace

from partie import HIDDEN, Failed, GameTest, Program, letters, main, wait_for
from watch import is_watched, megabytes

INDEX = "Bienvenue dans l'aide"


class Viewer(Program):
    """A viewer that runs already."""

    def __init__(self, screen, pid):  # pylint: disable=super-init-not-called
        self.screen = screen
        self.process = SimpleNamespace(pid=pid, poll=lambda: None)


class HelpTest(GameTest):
    thinking_time = 120  # the machine may be busy

    def setUp(self):
        super().setUp()
        self.viewer_file = os.path.join(self.tree, "grimoval-aide")
        self.help_file = os.path.join(self.tree, "Le Grimoval.HLP")
        self.addCleanup(self.end_viewers)

    def viewers(self):
        """The processes of the viewer in this test's own folder."""
        found = []
        for pid in filter(str.isdigit, os.listdir("/proc")):
            try:
                if os.readlink(f"/proc/{pid}/exe") == os.path.realpath(self.viewer_file):
                    found.append(int(pid))
            except OSError:  # it went, or is somebody else's
                pass
        return found

    def end_viewers(self):
        for pid in self.viewers():
            os.kill(pid, signal.SIGTERM)

    def viewer(self):
        return Viewer(self.screen, wait_for(self.viewers, "viewer")[0])

    def to_the_viewer(self, viewer):
        """Until the keyboard is there: the windows change places in their own time."""
        def in_front():
            focused = viewer.focused()
            return focused and focused.role != "push button" and not self.program.active()

        wait_for(in_front, "keyboard in the viewer")

    def keys(self, viewer, keys, done, what):
        """Keys for the viewer from its index; anew if they went astray while the windows changed places."""
        for _ in range(4):
            viewer.press("Index")
            self.to_the_viewer(viewer)
            self.screen.key(*keys)
            try:
                return wait_for(done, what, 4)
            except Failed:
                pass
        raise Failed(what)

    def follow_first_link(self, viewer):
        return self.keys(viewer, ("Tab", "Return"),
                         lambda: (viewer.find(name="Ta première partie") or [None])[0], "first page")

    def to_the_game(self):
        self.screen.bring_to_front("^Le Grimoval $")
        wait_for(self.program.active, "game in front")


class Help(HelpTest):
    def test_viewer_shows_the_index_once_and_the_game_goes_on(self):
        self.start_game("1 Joueur", ("dupont", "marie"))
        word = self.word()
        self.program.press("Aide")
        viewer = self.viewer()
        page = viewer.await_one(name=INDEX)
        self.assertIn("Ta première partie", page.text)
        self.assertIn("Pour les parents", page.text)
        wait_for(lambda: viewer.active().name == "Aide du Grimoval : " + INDEX, "title of the viewer")
        buttons = {b.name: b.sensitive for b in viewer.find("push button")}
        self.assertEqual(buttons, {"Index": True, "Précédent": False, "Fermer": True})

        self.to_the_game()
        first, *others = letters(word)
        self.screen.key(first.lower())
        self.await_state(first, "trouvée")
        self.propose(others[0])
        self.await_state(others[0], "trouvée")

        # A link by the keyboard, then a second press: the same window, at its index again.
        self.program.press("Aide")
        wait_for(viewer.active, "viewer in front again")
        self.assertIn("flèche verte", self.follow_first_link(viewer).text)
        viewer.press("Précédent")
        viewer.await_one(name=INDEX)
        self.follow_first_link(viewer)
        self.to_the_game()
        self.program.press("Aide")
        wait_for(viewer.active, "viewer in front once more")
        viewer.await_one(name=INDEX)
        wait_for(lambda: self.viewers() == [viewer.process.pid], "one viewer alone")

        self.keys(viewer, ("Escape",), lambda: not self.viewers(), "end of the viewer")
        self.to_the_game()
        for letter in others[1:]:
            self.propose(letter)
        self.program.await_label(HIDDEN, word)

    def test_without_help_file_or_viewer_nothing_happens(self):
        self.pass_splash()
        for missing in (self.help_file, self.viewer_file):
            os.rename(missing, missing + ".absent")
            self.program.press("Aide")
            time.sleep(0.7)
            self.assertEqual(self.viewers(), [])
            self.assertEqual(self.program.active().name, "Le Grimoval ")
            os.rename(missing + ".absent", missing)
        self.program.press("Aide")
        self.viewer().await_one(name=INDEX)

    def test_a_viewer_that_was_killed_bars_no_other(self):
        self.pass_splash()
        self.program.press("Aide")
        self.viewer().await_one(name=INDEX)
        os.kill(self.viewers()[0], signal.SIGKILL)
        wait_for(lambda: not self.viewers(), "end of the viewer")
        self.to_the_game()
        self.program.press("Aide")
        self.viewer().await_one(name=INDEX)


def png(width, height, *more):
    """A picture, and chunks between its head and its pixels."""
    def chunk(kind, content):
        return (struct.pack(">I", len(content)) + kind + content
                + struct.pack(">I", zlib.crc32(kind + content)))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
            + b"".join(chunk(*one) for one in more)
            + chunk(b"IDAT", zlib.compress((b"\0" + b"\x7f" * 4 * width) * height)) + chunk(b"IEND", b""))


def container(html, pictures=None):
    pictures = {} if pictures is None else pictures
    html = html.encode()
    return (b"GRIMHLP 1\nPAGE index %d Essai\n%s\n" % (len(html), html)
            + b"".join(b"IMAGE %s %d\n%s\n" % (name.encode(), len(bytes_), bytes_)
                       for name, bytes_ in pictures.items()) + b"END\n")


SQUARES = {f"P{n}.png": png(1024, 1024) for n in range(60)}
BOMB = {"P.png": png(4, 4, *[(b"zTXt", b"a\0\0" + zlib.compress(b"x" * 900_000, 9))] * 900)}
HOSTILE = {
    "tables in tables": ("<table><tr><td>" * 4000, {}),
    "lists in lists": ("<ul><li>" * 7000, {}),
    "quotations in quotations": ("<blockquote>" * 5000, {}),
    "bold in bold": ("<b>" * 20000, {}),
    "wide cells": ("<table><tr>" + "<td colspan=30000 rowspan=30000>a" * 300 + "</table>", {}),
    "many columns": ("<table><tr>" + "<td>a</td>" * 6000 + "</tr></table>", {}),
    "great measures": ('<table border="999999999" cellpadding="999999999" width="999999999"><tr><td>a</table>'
                       '<p style="font-size:999999999px;margin:999999999px">a</p>', {}),
    "many rules": ("<style>" + "p p p p{color:red}" * 1500 + "</style>" + "<p>" * 8000, {}),
    "one word": ("<p>" + "a" * 60000, {}),
    "accents upon accents": ("<p>a" + "\u0301" * 30000, {}),
    "empty lines": ("<br>" * 15000, {}),
    "many large pictures": ("".join(f'<img src="{name}">' for name in SQUARES), SQUARES),
    "one picture many times": ('<img src="P.png">' * 3500, {"P.png": png(128, 128)}),
    "picture that swells": ('<img src="P.png">', BOMB),
}


class Files(HelpTest):
    def write(self, content):
        file = os.path.join(self.screen.folder, "essai.HLP")
        with open(file, "wb") as out:
            out.write(content)
        return file

    def test_damaged_files_show_nothing(self):
        with open(self.help_file, "rb") as file:
            whole = file.read()
        page = b"PAGE index 3 Titre\nabc\n"
        damaged = {
            "empty": b"",
            "another kind": b"GRIMHLP 2\n" + whole.split(b"\n", 1)[1],
            "no page": b"GRIMHLP 1\nEND\n",
            "more behind its end": whole + b"x",
            "half": whole[:len(whole) // 2],
            "without its end": whole[:-4],
            "huge": whole[:-4] + b"\n" * (17 << 20),
            "length beyond the file": b"GRIMHLP 1\nPAGE index 999 Titre\nabc\nEND\n",
            "length beyond numbers": b"GRIMHLP 1\nPAGE index 99999999999999999999 T\nabc\nEND\n",
            "negative length": b"GRIMHLP 1\nPAGE index -1 Titre\nabc\nEND\n",
            "short length": b"GRIMHLP 1\nPAGE index 2 Titre\nabc\nEND\n",
            "path as a name": b"GRIMHLP 1\nPAGE ../index 3 Titre\nabc\nEND\n",
            "page twice": b"GRIMHLP 1\n" + page + page + b"END\n",
            "unknown part": b"GRIMHLP 1\n" + page + b"CODE x 3\nabc\nEND\n",
            "page beyond its bound": container("a" * 70_000),
            "header without end": b"GRIMHLP 1\nPAGE index 3 " + b"T" * 5000,
        }
        for name, content in damaged.items():
            with self.subTest(name):
                viewer = self.screen.start([self.viewer_file, self.write(content)])
                self.assertEqual(viewer.wait(10), 1)
        self.assertEqual(self.screen.start([self.viewer_file]).wait(10), 1)
        self.assertEqual(self.screen.start([self.viewer_file, self.screen.folder]).wait(10), 1)

    def test_nothing_from_outside_is_loaded(self):
        self.pass_splash()
        with socket.socket() as ear:
            ear.bind(("127.0.0.1", 0))
            ear.listen()
            ear.settimeout(1.0)
            away = f"http://127.0.0.1:{ear.getsockname()[1]}/x"
            html = (f'<html><head><link rel="stylesheet" href="{away}.css"></head><body>'
                    f'<p>ici</p><img src="{away}.png"><img src="file:///etc/hostname">'
                    f'<img src="faux.png"><a href="{away}.html">dehors</a></body></html>').encode()
            bad = b"pas une image"
            file = self.write(b"GRIMHLP 1\nPAGE index %d Essai\n%s\nIMAGE faux.png %d\n%s\nEND\n"
                              % (len(html), html, len(bad), bad))
            process = self.screen.start([self.viewer_file, file, "inconnu"])
            viewer = Viewer(self.screen, process.pid)
            page = viewer.await_one(name="Essai")  # the index, for want of that keyword
            self.assertIn("dehors", page.text)
            self.screen.key("Tab", "Return")
            with self.assertRaises(TimeoutError):
                ear.accept()
            viewer.await_one(name="Essai")
            self.screen.key("Escape")
            self.assertEqual(process.wait(10), 0)

    @unittest.skipUnless(shutil.which("strace"), "strace is missing")
    def test_no_file_that_a_page_names_is_opened(self):
        self.pass_splash()
        folder = self.screen.folder
        for name, content in (("dehors.css", b"p { color: red }"), ("dehors.png", png(8, 8))):
            pathlib.Path(folder, name).write_bytes(content)
        places = [place + kind for kind in ("dehors.png", "dehors.css") for place in
                  ("", "../", "../../", folder + "/", "file://" + folder + "/", "aide:/../", ":/", "qrc:/",
                   "//" + folder + "/", "~/", "file:")]
        html = "".join(
            f'<link rel="stylesheet" href="{place}"><style>@import "{place}"; @import url({place});'
            f'body {{ background: url({place}) }}</style>'
            f'<p style="background-image: url({place})"><img src="{place}">'
            f'<a title="&lt;img src=\'{place}\'&gt;" href="{place}">lien</a>'
            f'<table background="{place}"><tr><td background="{place}">a</td></tr></table>'
            f'<object data="{place}"></object><iframe src="{place}"></iframe>' for place in places)
        trace = os.path.join(folder, "trace")
        process = self.screen.start(
            ["env", "ASAN_OPTIONS=detect_leaks=0", "strace", "-D", "-f", "-qq", "-o", trace,
             "-e", "trace=%file", self.viewer_file, self.write(container(html))])
        viewer = Viewer(self.screen, process.pid)
        viewer.await_one(name="Essai")
        for _ in range(3):
            self.screen.key("Tab", "Return")
        viewer.await_one(name="Essai")
        self.screen.key("Escape")
        process.wait(30)
        calls = pathlib.Path(trace).read_text(encoding="utf-8", errors="replace")
        self.assertIn("essai.HLP", calls)
        self.assertEqual([line for line in calls.splitlines() if "dehors" in line], [])

    def test_a_hostile_page_is_shown_soon_or_not_at_all(self):
        self.pass_splash()
        for name, (html, pictures) in HOSTILE.items():
            with self.subTest(name):
                start = time.monotonic()
                process = self.screen.start(
                    [self.viewer_file, self.write(container(html + "<p>fin", pictures))])
                viewer = Viewer(self.screen, process.pid)
                page = viewer.await_one(name="Essai")
                self.assertTrue(page.text.endswith("fin") or "fin" in page.text[-20:])
                if not is_watched(process):
                    self.assertLess(time.monotonic() - start, 8)
                    self.assertLess(megabytes(process), 300)
                self.screen.key("Escape")
                self.assertEqual(process.wait(10), 0)


main()
