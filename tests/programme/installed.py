# SPDX-License-Identifier: GPL-3.0-or-later
"""The installed tree: what is in it, that every number of the version is the same, and that the game
plays from it wherever it was moved to, without a change to a file of it."""
import glob
import gzip
import hashlib
import os
import re
import shutil
import stat
import subprocess
import tempfile
import unittest

from partie import TREE, GameTest, Program, Screen, main, wait_for

BUILD = os.path.dirname(TREE)
SOURCES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
DATA = "share/games/grimoval"
PROGRAMS = ["bin/grimbases", "games/grimoval", "libexec/grimoval/grimoval-aide"]
ICONS = [f"share/icons/hicolor/{side}x{side}/apps/grimoval.png"
         for side in (16, 24, 32, 48, 64, 128, 256, 512)]
OTHERS = ["share/applications/grimoval.desktop", "share/bash-completion/completions/grimbases",
          "share/doc/grimoval/LICENCES.md",
          "share/icons/hicolor/scalable/apps/grimoval.svg",
          "share/metainfo/example.calvenor.grimoval.metainfo.xml",
          "share/man/man1/grimbases.1.gz", "share/man/fr/man1/grimbases.1.gz",
          "share/man/man6/grimoval.6.gz", "share/man/fr/man6/grimoval.6.gz"]


def files(folder):
    return {os.path.relpath(os.path.join(place, name), folder)
            for place, _, names in os.walk(folder) for name in names}


def content(folder):
    """Every file by its hash, its mode and its time."""
    told = {}
    for name in files(folder):
        with open(os.path.join(folder, name), "rb") as file:
            state = os.stat(file.fileno())
            told[name] = (hashlib.sha256(file.read()).digest(), state.st_mode, state.st_mtime_ns)
    return told


def text(*names):
    with open(os.path.join(*names), encoding="utf-8") as file:
        return file.read()


def install(prefix):
    subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix], check=True,
                   stdout=subprocess.DEVNULL, umask=0o022)


def installed(folder):
    """A tree that was moved after it had been installed."""
    first, prefix = (os.path.join(folder, place) for place in ("premier lieu", "second lieu"))
    install(first)
    os.rename(first, prefix)
    return prefix


def themes(prefix):
    told = subprocess.run([os.path.join(prefix, "bin/grimbases"), "lister"], check=True,
                          capture_output=True, text=True).stdout
    return {line.split(" (")[0] for line in told.splitlines() if not line.startswith(" ")}


class Tree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = installed(cls.enterClassContext(tempfile.TemporaryDirectory()))

    def file(self, name):
        return os.path.join(self.prefix, name)

    def test_it_holds_the_game_its_data_and_what_the_desktop_asks(self):
        data = {f"{DATA}/{name}" for name in files(TREE)
                if name.split("/")[0] in ("IMAGES", "SONS", "MASK", "mots")
                or name.endswith((".HLP", ".chm"))}
        self.assertIn(f"{DATA}/MASK/GRIMV.LST", data)
        self.assertIn(f"{DATA}/Le Grimoval.HLP", data)
        self.assertEqual(files(self.prefix), data.union(PROGRAMS, ICONS, OTHERS))

    def test_everybody_may_read_it_and_the_owner_alone_write(self):
        for place, folders, names in os.walk(self.prefix):
            for name in folders + names:
                file = os.path.join(place, name)
                program = os.path.isdir(file) or os.path.relpath(file, self.prefix) in PROGRAMS
                self.assertEqual(stat.S_IMODE(os.lstat(file).st_mode), 0o755 if program else 0o644,
                                 file)

    def test_programs_look_for_libraries_where_the_system_has_them(self):
        for name in PROGRAMS:
            told = subprocess.run(["readelf", "-d", self.file(name)], check=True, text=True,
                                  capture_output=True, env={**os.environ, "LC_ALL": "C"}).stdout
            self.assertIn("(NEEDED)", told)
            self.assertNotRegex(told, "RPATH|RUNPATH")

    def test_menu_entry_leads_to_the_program_and_to_an_icon(self):
        entry = text(self.file("share/applications/grimoval.desktop"))
        self.assertIn("\nExec=grimoval\n", entry)
        self.assertIn("\nIcon=grimoval\n", entry)
        self.assertTrue(os.access(self.file("games/grimoval"), os.X_OK))
        for icon in ICONS:
            side = re.search(r"(\d+)x", icon)[1]
            size = subprocess.run(["identify", "-format", "%w %h", self.file(icon)], check=True,
                                  capture_output=True, text=True).stdout
            self.assertEqual(size, f"{side} {side}")

    @unittest.skipUnless(shutil.which("desktop-file-validate"), "desktop-file-validate is missing")
    def test_menu_entry_is_in_form(self):
        subprocess.run(["desktop-file-validate", self.file("share/applications/grimoval.desktop")],
                       check=True, stdout=subprocess.DEVNULL)

    @unittest.skipUnless(shutil.which("appstreamcli"), "appstreamcli is missing")
    def test_entry_for_software_centres_is_in_form(self):
        subprocess.run(["appstreamcli", "validate", "--no-net",
                        self.file("share/metainfo/example.calvenor.grimoval.metainfo.xml")],
                       check=True, stdout=subprocess.DEVNULL)

    def test_bash_completes_every_word_of_grimbases(self):
        told = subprocess.run([self.file("bin/grimbases"), "--aide"], check=True, text=True,
                              capture_output=True).stdout
        words = set(re.findall(r"^  grimbases (\w+)", told, re.M))
        self.assertIn("verifier", words)
        script = ('. "$1"; COMP_WORDS=(grimbases ""); COMP_CWORD=1; _grimbases; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        offered = subprocess.run(
            ["bash", "-c", script, "bash",
             self.file("share/bash-completion/completions/grimbases")],
            check=True, text=True, capture_output=True).stdout.split()
        self.assertEqual(set(offered), words.union(["--aide", "--version"]))

    def test_pages_of_the_manual_are_whole(self):
        for page in glob.glob(self.file("share/man/**/*.gz"), recursive=True):
            with gzip.open(page, "rt", encoding="utf-8") as lines:
                self.assertIn(".SH NOM\n", lines.read())

    def test_every_version_is_the_same(self):
        version = re.search(r"project\(grimoval VERSION (\S+)",
                            text(SOURCES, "CMakeLists.txt"))[1]
        major, minor, revision = version.split(".")
        self.assertIn(f"major = {major}, minor = {minor}, revision = {revision};",
                      text(SOURCES, "platform/services.h"))
        self.assertTrue(text(SOURCES, "packaging/debian/changelog").startswith(
            f"grimoval ({version}) "))
        self.assertIn(f'<release version="{version}"',
                      text(self.file("share/metainfo/example.calvenor.grimoval.metainfo.xml")))


class Again(unittest.TestCase):
    def test_a_list_that_was_added_outlives_another_installation(self):
        with tempfile.TemporaryDirectory() as folder:
            words = os.path.join(folder, "classe.txt")
            with open(words, "w", encoding="utf-8") as file:
                file.write("Titre : Notre classe\nhibou\nparapluie\n")
            install(folder)
            before = themes(folder)
            subprocess.run([os.path.join(folder, "bin/grimbases"), "ajouter", words], check=True,
                           stdout=subprocess.DEVNULL)
            self.assertEqual(themes(folder), before | {"Notre classe"})
            install(folder)
            self.assertEqual(themes(folder), before | {"Notre classe"})


class Play(GameTest):
    def setUp(self):
        self.screen = Screen()
        self.enterContext(self.screen)
        self.prefix = installed(self.screen.folder)

    def file(self, name):
        return os.path.join(self.prefix, name)

    def test_the_game_plays_from_where_the_tree_lies_and_changes_nothing_in_it(self):
        subprocess.run(["chmod", "-R", "a-w", self.prefix], check=True)
        before = content(self.prefix)
        self.program = Program(self.screen, self.file("games/grimoval"))
        self.pass_splash()
        wait_for(lambda: self.screen.is_in_front(2), "main window over its backdrop")
        told = wait_for(lambda: self.screen.run("xprop", "-id", str(self.screen.active_window()),
                                                "WM_CLASS", "_NET_WM_ICON"), "main window")
        self.assertIn('"grimoval", "grimoval"', told)
        self.assertIn("Icon (32 x 32)", told)

        self.program.press("Changer de thème")
        titles = themes(self.prefix)
        self.assertGreater(len(titles), 10)
        shown = self.program.await_one("list")
        wait_for(lambda: {item.name for item in shown.children()} == titles, "every theme")
        self.program.press("Annuler")
        self.program.press("Aide")
        self.screen.bring_to_front("^Aide du Grimoval")
        self.screen.key("Escape")
        wait_for(self.program.active, "the game again")
        self.quit()
        self.assertEqual(content(self.prefix), before)


main()
