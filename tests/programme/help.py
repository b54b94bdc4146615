# SPDX-License-Identifier: GPL-3.0-or-later
"""Help on the real program: one viewer beside the game, which goes on; silence where there is none; and
a viewer that takes neither bad files nor anything from outside."""
import os
import signal
import socket
import time
from types import SimpleNamespace

from partie import HIDDEN, Failed, GameTest, Program, letters, main, wait_for

INDEX = "Bienvenue dans l'aide"


class Viewer(Program):
    """A viewer that runs already."""

    def __init__(self, screen, pid):  # pylint: disable=super-init-not-called
        self.screen = screen
        self.process = SimpleNamespace(pid=pid)


class HelpTest(GameTest):
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


main()
