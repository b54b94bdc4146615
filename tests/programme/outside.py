# SPDX-License-Identifier: GPL-3.0-or-later
"""What the real program asks the system to open: a site, a mail, a document, each once. The
system's opener is one of the test's own, which notes what it was given."""
import os
import pathlib
import shutil
import time
import unittest.mock

import partie
from partie import GameTest, Screen, main, wait_for

MAIL = ("mailto:support@calvenor.example?Subject=Le Grimoval 1.0.9?&body=Veuillez saisir votre message "
        "et merci de ne pas modifier le titre (sujet/subject)")


class Outside(GameTest):
    def setUp(self):
        test = self

        class WatchedScreen(Screen):
            def open(self):
                super().open()
                test.noted = os.path.join(self.folder, "opened")
                opener = os.path.join(self.folder, "programs", "xdg-open")
                os.mkdir(os.path.dirname(opener))
                with open(opener, "w", encoding="utf-8") as script:
                    script.write(f"#!/bin/sh\nprintf '%s\\n' \"$# $*\" >>{test.noted}\n")
                os.chmod(opener, 0o755)
                self.env["PATH"] = os.path.dirname(opener) + ":" + self.env["PATH"]

        with unittest.mock.patch.object(partie, "Screen", WatchedScreen):
            super().setUp()

    def opened(self):
        if not os.path.exists(self.noted):
            return []
        with open(self.noted, encoding="utf-8") as file:
            return file.read().splitlines()

    def test_each_address_as_it_stands_and_the_game_goes_on(self):
        self.pass_splash()
        self.program.press("A propos")
        expected = []
        for button, address in (("Site internet", "https://www.calvenor.example/"),
                                ("ECRIRE AU SUPPORT TECHNIQUE", MAIL),
                                ("Site internet", "https://www.calvenor.example/")):
            self.program.press(button)
            expected.append("1 " + address)
            wait_for(lambda: len(self.opened()) == len(expected), address)
            self.assertEqual(self.opened(), expected)
        self.program.press("OK")

        catalogue = os.path.join(self.tree, "catalogue.chm")
        self.program.press("Catalogue des thèmes")
        expected.append("1 " + pathlib.Path(catalogue).as_uri())
        wait_for(lambda: len(self.opened()) == len(expected), catalogue)
        self.assertEqual(self.opened(), expected)

        # Without the document, or without anything that opens one, nothing happens.
        os.remove(catalogue)
        self.program.press("Catalogue des thèmes")
        shutil.rmtree(os.path.join(self.screen.folder, "programs"))
        self.program.press("A propos")
        self.program.press("Site internet")
        time.sleep(0.5)
        self.assertEqual(self.opened(), expected)
        self.program.press("OK")
        self.quit()


main()
