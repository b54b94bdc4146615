# SPDX-License-Identifier: GPL-3.0-or-later
"""The real program in homes as they can be: with a name of any bytes, with settings that are closed or
lie elsewhere, and under a limit of file size. What it writes lies where it should, and nowhere else."""
import os
import re
import shutil
import subprocess

from partie import GRIMBASES, GameTest, Program, main

OWN = ".local/share/Calvenor/Le Grimoval"
FILES = ["GRIMOVA.INI", "SCORGRIM.BAK", "SCORGRIM.TXT"]


class HomeTest(GameTest):
    def begin(self):
        self.game = os.path.join(self.tree, "grimoval")

    def start(self, *around):
        self.program = Program(self.screen, "env", *around, self.game)

    def play(self):
        """A game as short as can be, and the end."""
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.leave_scores()
        self.quit()

    def change_sound(self):
        self.program.press("Configuration du son")
        self.program.await_one("check box", "Musique").press()
        self.program.press("OK")
        self.program.await_one("push button", "Nouvelle partie")


class Names(HomeTest):
    def test_of_any_bytes_hold_the_program_and_what_it_writes(self):
        names = ["Élodie \N{GRINNING FACE}", os.fsdecode(b"\xc9lodie"), "  ", "l'été"]
        others = ["Élodie \N{CAT FACE}", "Élodie \N{REPLACEMENT CHARACTER}", os.fsdecode(b"\xc8lodie"),
                  "\N{REPLACEMENT CHARACTER}lodie"]
        homes = os.path.join(self.screen.folder, "homes")
        for name in others:
            os.makedirs(os.path.join(homes, name, OWN))
        for name in names:
            home = os.path.join(homes, name)
            os.mkdir(home)
            tree = os.path.join(home, "jeu")
            shutil.copytree(self.tree, tree, symlinks=True)
            self.game = os.path.join(tree, "grimoval")
            self.start("-u", "XDG_DATA_HOME", "HOME=" + home)
            self.play()
            self.assertEqual(sorted(os.listdir(os.path.join(home, OWN))), FILES)
            with open(os.path.join(home, OWN, "SCORGRIM.TXT"), encoding="cp1252") as log:
                self.assertIn("DUPONT", log.read())
            shutil.rmtree(tree)
        for name in others:
            self.assertEqual(os.listdir(os.path.join(homes, name, OWN)), [], name)


class Settings(HomeTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.pass_splash()
        self.quit()
        with open(self.data("GRIMOVA.INI"), "rb") as file:
            self.before = file.read()

    def changed(self):
        self.start()
        self.pass_splash()
        self.change_sound()
        self.quit()
        with open(self.data("GRIMOVA.INI"), "rb") as file:
            return file.read()

    def test_that_may_only_be_read_keep_nothing(self):
        os.chmod(self.data("GRIMOVA.INI"), 0o444)
        self.assertEqual(self.changed(), self.before)
        self.assertEqual(os.stat(self.data("GRIMOVA.INI")).st_mode & 0o777, 0o444)

    def test_that_lie_elsewhere_are_written_there(self):
        elsewhere = os.path.join(self.screen.folder, "reglages")
        shutil.move(self.data("GRIMOVA.INI"), elsewhere)
        os.symlink(elsewhere, self.data("GRIMOVA.INI"))
        after = self.changed()
        self.assertTrue(os.path.islink(self.data("GRIMOVA.INI")))
        self.assertEqual(re.sub(b"Music=.", b"", after), re.sub(b"Music=.", b"", self.before))
        self.assertNotEqual(after, self.before)
        with open(elsewhere, "rb") as file:
            self.assertEqual(file.read(), after)

    def test_of_twenty_megabytes_of_line_ends_keep_nobody_waiting(self):
        with open(self.data("GRIMOVA.INI"), "wb") as file:
            file.write(b"\n" * (20 << 20))
        self.start()
        self.pass_splash()
        self.program.await_one("push button", "Nouvelle partie", seconds=8)
        self.quit()
        self.assertEqual(os.path.getsize(self.data("GRIMOVA.INI")), 20 << 20)


class Limit(HomeTest):
    def test_of_file_size_is_a_full_disk_and_no_end(self):
        self.start()
        self.play()
        with open(self.data("SCORGRIM.TXT"), "rb") as file:
            before = file.read()
        # Nothing may grow beyond the log as it is: the record finds no room.
        self.start("prlimit", f"--fsize={len(before)}")
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.program.await_one(name="Scores")
        self.program.press("Quitter")
        self.program.await_one(name="Disque / est saturé.")
        self.program.press("OK")
        self.program.await_one("push button", "Nouvelle partie")
        self.quit()
        with open(self.data("SCORGRIM.TXT"), "rb") as file:
            self.assertEqual(file.read(), before)

    def test_of_file_size_is_told_by_grimbases(self):
        bases, sources = os.path.join(self.tree, "MASK"), os.path.join(self.screen.folder, "sources")
        with open(os.path.join(sources, "NEUF.txt"), "w", encoding="utf-8") as file:
            file.write("Titre : Nouveau\nQUATRE\nDEUX\nTROIS\n")
        before = sorted(os.listdir(bases))
        made = subprocess.run(["prlimit", "--fsize=100", GRIMBASES, "construire", sources, bases],
                              capture_output=True, text=True, check=False)
        self.assertEqual(made.returncode, 1)
        self.assertIn("Le disque est plein", made.stderr)
        self.assertEqual(sorted(os.listdir(bases)), before)


main()
