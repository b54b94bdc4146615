# SPDX-License-Identifier: GPL-3.0-or-later
"""What a person does to the program from outside: a French keyboard, the window manager's close, a
second start, the end of the session."""
import signal

from partie import HIDDEN, GameTest, letters, main, wait_for


class Keyboard(GameTest):
    words = ["ÊTRE HUMAIN", "LE ROI DES PRÊTRES"]
    thinking_time = 120  # the machine may be busy

    def test_dead_key_composed_or_alone_proposes_nothing(self):
        self.screen.keyboard("fr")
        self.start_game("1 Joueur", ("dupont", "marie"))
        mask = self.program.label(HIDDEN)
        self.screen.key("dead_circumflex", "e")      # ê
        self.screen.key("dead_diaeresis", "u")       # ü
        self.screen.key("dead_circumflex", "space")  # ^ alone
        self.screen.key("dead_circumflex", "z")      # no such letter
        self.screen.key("eacute", "ccedilla", "ugrave")
        self.screen.key("dead_circumflex")
        self.screen.key("e")                         # still the end of ê
        # A plain letter counts, and what stood before it does not.
        self.screen.key("r")
        wait_for(lambda: self.state_of("R") == "trouvée", "R found")
        for letter in "EUCZ":
            self.assertEqual(self.state_of(letter), "disponible", letter)
        self.assertEqual(self.program.label("Score du joueur 1"), "1")
        self.program.await_one("image", "Image du thème", "sans voile")
        word = next(w for w in self.words if len(w) == len(mask))
        self.find_word(word, lambda letter: self.screen.key(letter.lower()))
        self.assertEqual(self.program.label("Score du joueur 1"), str(len(letters(word)) + 5))


    def test_the_compose_key_proposes_nothing(self):
        self.screen.run("setxkbmap", "us", "-option", "compose:ralt")
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.screen.key("Multi_key", "apostrophe", "e")   # é
        self.screen.key("Multi_key", "e", "grave")        # è
        self.screen.key("Multi_key", "o", "e")            # œ
        self.screen.key("Multi_key", "comma", "c")        # ç
        self.screen.key("r")
        wait_for(lambda: self.state_of("R") == "trouvée", "R found")
        for letter in "EOC":
            self.assertEqual(self.state_of(letter), "disponible", letter)
        self.assertEqual(self.program.label("Score du joueur 1"), "1")


class WindowManager(GameTest):
    def test_modal_window_is_tied_to_its_opener(self):
        self.pass_splash()
        wait_for(lambda: self.screen.is_in_front(2) and '= "Le Grimoval "' in self.told_of_front("WM_NAME"),
                 "main window in front")
        menu = self.screen.active_window()
        self.program.press("Configuration du jeu")
        self.program.await_one("push button", "1 Joueur")
        wait_for(lambda: self.screen.is_in_front(3), "configuration in front")
        told = wait_for(lambda: self.told_of_front("WM_TRANSIENT_FOR"), "window in front")
        self.assertRegex(told, f" {menu:#x}$")

    def test_close_request_reaches_no_window_under_a_modal_one(self):
        self.pass_splash()
        wait_for(lambda: self.screen.is_in_front(2), "main window in front")
        menu = self.screen.active_window()
        self.program.press("Configuration du son")
        self.program.await_one("check box", "Musique")
        wait_for(lambda: self.screen.is_in_front(3), "options in front")
        # As the cross of its title bar asks, which a modal window leaves on view.
        self.screen.close(menu)
        self.screen.close(menu)
        self.program.await_one("check box", "Parole")
        self.assertTrue(self.screen.is_in_front(3))
        self.screen.key("alt+F4")  # the options themselves are left by it
        self.program.await_one("push button", "Nouvelle partie")
        wait_for(lambda: self.screen.is_in_front(2), "main window in front again")
        self.assertEqual(self.screen.active_window(), menu)
        self.screen.close(menu)
        self.program.await_one("label", "Veux-tu vraiment quitter ?")
        self.screen.key("Return")
        self.assertEqual(self.program.await_end(), 0)

    def told_of_front(self, what):
        return self.screen.run("xprop", "-id", str(self.screen.active_window()), what)


class Process(GameTest):
    def test_second_instance_ends_at_once_and_silently(self):
        self.pass_splash()
        second = self.program.second()
        self.assertEqual(second.wait(5), 0)
        self.assertIsNone(self.program.process.poll())
        # A first one that was killed leaves nothing behind that bars the next.
        self.program.process.kill()
        self.program.process.wait()
        self.program.process = self.program.second()
        self.pass_splash()

    def test_window_managers_close_asks_and_then_ends_the_process(self):
        self.pass_splash()
        self.screen.key("alt+F4")
        self.program.await_one("label", "Veux-tu vraiment quitter ?")
        self.program.press("Annuler")
        self.program.await_one("push button", "Nouvelle partie")
        self.screen.key("alt+F4")
        self.program.await_one("label", "Veux-tu vraiment quitter ?")
        self.screen.key("Return")
        self.assertEqual(self.program.await_end(), 0)

    def test_closing_the_splash_goes_on_to_the_main_window(self):
        self.program.await_one("label", "Le Grimoval")
        self.screen.key("alt+F4")
        self.program.await_one("push button", "Nouvelle partie")

    def test_end_of_the_session_ends_the_process(self):
        self.pass_splash()
        self.program.process.send_signal(signal.SIGTERM)
        self.program.await_end(3)


main()
