# SPDX-License-Identifier: GPL-3.0-or-later
"""The two ends of a run: what the program is started with, and how it goes when it is left."""
import os

from partie import GameTest, main, wait_for
from pilote import Program


class Arguments(GameTest):
    def begin(self):
        # A name that is none, and options that the toolkit would take.
        self.program = Program(
            self.screen, "bash", "-c", 'exec -a /nulle/part "$0" "$@"',
            os.path.join(self.tree, "grimoval"), "-platform", "nonsense", "-style", "nonsense",
            "-qwindowgeometry", "40x40", "-reverse", "--help", "MASK/GRIMV.LST")

    def test_the_program_takes_none(self):
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.find_word(self.word())
        self.program.press("Stopper la partie")
        self.leave_scores()
        self.quit()


class Goodbye(GameTest):
    def windows(self):
        return self.screen.run("xprop", "-root", "_NET_CLIENT_LIST").count("0x")

    def test_is_heard_behind_an_empty_screen_and_bars_no_new_start(self):
        self.pass_splash()
        wait_for(lambda: self.windows() == 2, "main window and backdrop")
        self.program.press("Quitter")
        self.program.await_one("label", "Veux-tu vraiment quitter ?")
        self.program.press("OK")
        first = self.program.process
        wait_for(lambda: self.windows() == 0, "an empty screen", 1)
        self.assertIsNone(first.poll())  # it still speaks
        # Nothing is written any more: whoever comes next need not wait.
        self.program.process = self.program.second()
        self.program.await_one("label", "Le Grimoval")
        self.assertEqual(first.wait(6), 0)
        self.pass_splash()


main()
