# SPDX-License-Identifier: GPL-3.0-or-later
"""The report from the real program: a private print scheduler on the loopback, with a queue that
writes what it is sent into a file, made the default; then a machine without any printer."""
import contextlib
import os
import re
import socket
import subprocess
import tempfile
import threading
import time
import unittest

from partie import GameTest, main, wait_for
from watch import Stillness

CUPSD = "/usr/sbin/cupsd"

DAEMON = """
Listen 127.0.0.1:{port}
DefaultAuthType None
Browsing Off
WebInterface No
LogLevel warn
MaxLogSize 0
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
"""

FILES = """
ServerRoot {root}/etc
ServerBin {root}/bin
RequestRoot {root}/spool
TempDir {root}/spool/tmp
CacheDir {root}/cache
StateDir {root}/state
AccessLog {root}/access
ErrorLog {root}/error
PageLog {root}/page
"""

BACKEND = """#!/bin/sh
[ $# -lt 5 ] && echo 'direct papier "Papier" "Papier"' && exit 0
cat ${{6:+"$6"}} > {page}.new && mv {page}.new {page}
"""


class Scheduler:
    """A print scheduler of our own, gone at the end of the block."""

    def __init__(self, folder):
        self.root = os.path.join(folder, "cups")
        self.page = os.path.join(self.root, "page.pdf")

    def __enter__(self):
        for name in ("etc", "bin/backend", "spool/tmp", "cache", "state"):
            os.makedirs(os.path.join(self.root, name))
        for name in os.listdir("/usr/lib/cups"):
            if name != "backend":
                os.symlink(os.path.join("/usr/lib/cups", name),
                           os.path.join(self.root, "bin", name))
        backend = os.path.join(self.root, "bin", "backend", "papier")
        with open(backend, "w", encoding="utf-8") as file:
            file.write(BACKEND.format(page=self.page))
        os.chmod(backend, 0o700)  # the scheduler runs it as the administrator, who owns the folder
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            port = free.getsockname()[1]
        self.server = f"127.0.0.1:{port}"
        for name, text in (("cupsd.conf", DAEMON), ("cups-files.conf", FILES)):
            with open(os.path.join(self.root, name), "w", encoding="utf-8") as file:
                file.write(text.format(port=port, root=self.root))
        self.process = subprocess.Popen(
            [CUPSD, "-f", "-c", os.path.join(self.root, "cupsd.conf"),
             "-s", os.path.join(self.root, "cups-files.conf")],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: self.run("lpstat", "-r").returncode == 0, "a print scheduler", 15)
        # A scheduler that has just come up may still turn an administrator away.
        wait_for(lambda: self.run("lpadmin", "-p", "Papier", "-E", "-v", "papier:/", "-m", "raw")
                 .returncode == 0, "a print queue", 15)
        self.run("lpadmin", "-d", "Papier", check=True)
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait(10)

    def run(self, *command, check=False):
        return subprocess.run(command, env={**os.environ, "CUPS_SERVER": self.server},
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, timeout=20, check=check)


class SlowRoad:
    """Between the program and a print server: each request takes its time."""

    def __init__(self, server, delay):
        self.host, self.port = server.split(":")
        self.delay, self.requests = delay, 0
        self.door = socket.create_server(("127.0.0.1", 0))
        self.server = f"127.0.0.1:{self.door.getsockname()[1]}"
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            client = self.door.accept()[0]
            server = socket.create_connection((self.host, int(self.port)))
            for ends in ((client, server), (server, client)):
                threading.Thread(target=self.carry, args=ends, daemon=True).start()

    def carry(self, source, target):
        with contextlib.suppress(OSError):
            while block := source.recv(65536):
                if block.startswith((b"POST ", b"GET ")):
                    self.requests += 1
                    time.sleep(self.delay)
                target.sendall(block)
            target.shutdown(socket.SHUT_WR)


def words_of(page):
    """(text, left, top) of every word, in points, in the order of the page."""
    answer = subprocess.run(["pdftotext", "-bbox", page, "-"], check=True, text=True,
                            stdout=subprocess.PIPE, timeout=20).stdout
    return [(text, float(x), float(y)) for x, y, text in
            re.findall(r'<word xMin="([\d.]+)" yMin="([\d.]+)"[^>]*>(.*?)</word>', answer)]


def rules_of(page):
    """The frames and lines of the page, in points: (left, right, place) of each level one, (top, bottom, place) of
    each upright one. They are the runs of black longer than any letter, at four dots a point."""
    picture = subprocess.run(["pdftoppm", "-r", "288", "-gray", "-singlefile", page], check=True,
                             stdout=subprocess.PIPE, timeout=20).stdout
    _, size, _, dots = picture.split(b"\n", 3)
    width, height = map(int, size.split())

    def runs(lines):
        found = []
        for at, line in enumerate(lines):
            for run in re.finditer(rb"[\x00-\x7f]{200,}", line):
                if found and at <= found[-1][2] + 1:  # a line is some dots thick
                    found[-1] = min(run.start(), found[-1][0]), max(run.end(), found[-1][1]), at
                else:
                    found.append((run.start(), run.end(), at))
        return [tuple(dot / 4 for dot in one) for one in found]

    return (runs(dots[y * width:(y + 1) * width] for y in range(height)),
            runs(dots[x::width] for x in range(width)))


class Printing(GameTest):
    def setUp(self):
        pass  # the program starts when its print system is known

    def start_with(self, server):
        os.environ["CUPS_SERVER"] = server
        super().setUp()

    def play_a_word(self):
        self.start_game("1 Joueur", ("dupont", "marie"))
        self.propose("Z")
        self.program.press("Voir la réponse")
        self.program.press("Stopper la partie")
        self.program.await_one("push button", "Imprimer")

    @unittest.skipUnless(os.geteuid() == 0 and os.path.exists(CUPSD),
                         "a print scheduler runs as the administrator alone")
    def test_the_report_lies_on_the_page_of_the_default_printer(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="grimoval-"))
        with Scheduler(folder) as scheduler:
            self.start_with(scheduler.server)
            self.play_a_word()
            self.program.press("Imprimer")
            wait_for(lambda: os.path.exists(scheduler.page), "a printed page", 20)
            self.program.press("Quitter")
            words = words_of(scheduler.page)
            level, upright = rules_of(scheduler.page)
        place = {}
        for text, x, y in words:
            place.setdefault(text, (x, y))
        left = place["Fichier"][0]
        # Labels stand in one column, one line of the font below the other.
        rows = ["Fichier", "Sujet"]
        line = place["Sujet"][1] - place["Fichier"][1]
        self.assertAlmostEqual(line, 11.3, delta=1.0)
        for row in rows:
            self.assertAlmostEqual(place[row][0], left, delta=0.1)
        # The heading begins at the second print zone: 14 characters of 6 points from the edge, or 28.
        edge = left - 2 * 6.0
        heading = (place["Grimoval"][0] - 3 * 6.0 - edge) / 6.0
        self.assertAlmostEqual(heading % 14, 0, delta=0.2)
        # The names of the player stand one above the other, left of the values by nothing.
        self.assertAlmostEqual(place["DUPONT"][0], place["MARIE"][0], delta=0.1)
        self.assertAlmostEqual(place["MARIE"][1] - place["DUPONT"][1], line, delta=0.3)
        # A number has a blank for its sign: it stands one character right of the name's edge.
        for label, value in (("proposés", "1"), ("d'abandons", "1"), ("non", "1"),
                             ("mauvaises", "1"), ("bonnes", "0")):
            row = next(y for text, _, y in words if text.replace("&apos;", "'") == label)
            values = [(text, x) for text, x, y in words
                      if abs(y - row) < 0.5 and text.isdigit()]
            self.assertEqual(values[0][0], value, label)
            self.assertAlmostEqual(values[0][1], place["DUPONT"][0] + 6.0, delta=0.2)
        # The frame of the heading, a line, the frame of the table with two lines in it and one below the names.
        top = place["Fichier"][1] - 2.7 * line
        right = max(end for _, end, _ in level)
        for wanted, (_, end, y) in zip((1.2, 2.5, 5.8, 9.2, 11.7, 19.2), level, strict=True):
            self.assertAlmostEqual(y, top + wanted * line, delta=1)
            self.assertAlmostEqual(end, right, delta=1)
        for start, _, _ in level:
            self.assertAlmostEqual(start, edge + 6.0, delta=1)
        middle = edge + 30 * 6.0 + (right + 6.0 - edge - 30 * 6.0) / 2
        table = sorted(x for start, end, x in upright if end - start > 9 * line)
        for x, wanted in zip(table, (edge + 6.0, edge + 30 * 6.0, middle, right), strict=True):
            self.assertAlmostEqual(x, wanted, delta=1)
        text = " ".join(word for word, _, _ in words)
        for expected in ("Le Grimoval v3.0", "Fichier : BETES.DBS", "Sujet : Les bêtes",
                         "Nombre de mots : 5", "Temps de réflexion limitée à 20 secondes",
                         "Nombre d'erreurs limité à : 6", "Niveau : un seul joueur",
                         "Nombre de mots non trouvés"):
            self.assertIn(expected, text.replace("&apos;", "'"))
        self.assertNotIn("SCORE", text)
        self.assertTrue(all(0 < x < 595 and 0 < y < 842 for _, x, y in words))

    @unittest.skipUnless(os.geteuid() == 0 and os.path.exists(CUPSD),
                         "a print scheduler runs as the administrator alone")
    def test_a_slow_print_server_prints_and_keeps_no_window_still(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="grimoval-"))
        with Scheduler(folder) as scheduler:
            road = SlowRoad(scheduler.server, 0.25)
            self.start_with(road.server)
            self.play_a_word()
            asked = road.requests
            self.assertGreater(asked, 0)  # before anybody has asked for a page
            with Stillness(self.program.process) as seen:
                self.program.press("Imprimer")
                wait_for(lambda: os.path.exists(scheduler.page), "a printed page", 20)
            print(f"{asked} + {road.requests - asked} requests, {seen.longest:.2f} s", end=" ",
                  flush=True)
            self.assertLess(seen.longest, 0.5)
            self.program.await_one("push button", "Imprimer")
            # The log stands no more still, and knows the printer.
            with Stillness(self.program.process) as seen:
                self.program.press("Quitter")
                self.program.await_one("push button", "Nouvelle partie")
            self.assertLess(seen.longest, 0.5)
        with open(self.data("SCORGRIM.TXT"), encoding="cp1252") as file:
            self.assertGreater(len(file.readline()), 69)

    def test_without_a_printer_a_message_comes_and_the_game_goes_on(self):
        self.start_with("127.0.0.1:9")  # nobody answers there
        self.play_a_word()
        start = time.monotonic()
        self.program.press("Imprimer")
        self.program.await_one(name=re.compile("Problème d'imprimante !!"))
        self.assertLess(time.monotonic() - start, 4)
        self.program.press("OK")
        self.program.press("Quitter")
        self.program.await_one("push button", "Nouvelle partie")

    def test_a_print_server_that_never_answers_keeps_nobody_waiting(self):
        with socket.socket() as silent:
            silent.bind(("127.0.0.1", 0))
            silent.listen()
            self.start_with(f"127.0.0.1:{silent.getsockname()[1]}")
            self.play_a_word()
            start = time.monotonic()
            self.program.press("Quitter")
            self.program.await_one("push button", "Nouvelle partie")
            self.assertLess(time.monotonic() - start, 3)
            # A page is given ten seconds, in which the window lives.
            self.program.press("Nouvelle partie")
            self.word()
            self.program.press("Voir la réponse")
            self.program.press("Stopper la partie")
            start = time.monotonic()
            with Stillness(self.program.process) as seen:
                self.program.press("Imprimer")
                self.program.await_one(name="Problème d'imprimante !!", seconds=20)
            print(f"{time.monotonic() - start:.1f} s, still for {seen.longest:.2f} s", end=" ", flush=True)
            self.assertAlmostEqual(time.monotonic() - start, 10, delta=2)
            self.assertLess(seen.longest, 0.5)
        log = os.path.join(self.screen.env["XDG_DATA_HOME"], "Calvenor", "Le Grimoval",
                           "SCORGRIM.TXT")
        with open(log, encoding="cp1252") as file:
            self.assertEqual(file.readline(), "-" * 68 + "\n")


main()
