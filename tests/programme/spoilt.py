# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures and sounds that are damaged, huge, empty, or no files at all: the game plays, its memory stays
small, and its window never stands still."""
import os
import random
import struct

from partie import GameTest, main
from watch import Stillness, is_watched, megabytes

MEMORY = 150  # megabytes
STILL = 0.2   # seconds


def jpeg(width, height):
    """The head of a picture, and nothing of it."""
    return (b"\xff\xd8\xff\xc0\x00\x11\x08" + struct.pack(">HH", height, width)
            + b"\x03\x01\x22\x00\x02\x11\x01\x03\x11\x01\xff\xda\x00\x0c\x03\x01\x00\x02\x11\x03\x11"
            + b"\x00\x3f\x00")


def tga(width, height):
    return struct.pack("<BBB9xHHBB", 0, 0, 2, width, height, 32, 0x28)


def bmp(width, height):
    return (b"BM" + struct.pack("<IHHI", 54, 0, 0, 54)
            + struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, 0, 0, 0, 0, 0))


def wave(rate):
    return (b"RIFF\xff\xff\xff\x7fWAVEfmt " + struct.pack("<IHHIIHH", 16, 1, 1, rate, rate, 1, 8)
            + b"data\xff\xff\xff\x7f")


class Spoilt(GameTest):
    headings = ["Image : BETES"]
    thinking_time = 120

    def begin(self):
        pass  # when its files are spoilt

    def spoil(self, folder, name, how):
        """The ways a file can be bad; of one that is there, or of one that might be."""
        file = os.path.join(self.tree, folder, name)
        good = b""
        if os.path.exists(file):
            with open(file, "rb") as old:
                good = old.read()
            os.remove(file)
        if how == "pipe":
            os.mkfifo(file)
        elif how == "folder":
            os.mkdir(file)
        elif how != "missing":
            with open(file, "wb") as new:
                new.write({"random": random.Random(1).randbytes(50000),
                           "cut": good[:len(good) // 2], "empty": b""}.get(how, how))

    def stretch(self, folder, name, size):
        os.truncate(os.path.join(self.tree, folder, name), size)

    def play(self):
        """From start to end; what it cost."""
        super().begin()
        self.program.await_one("label", "Le Grimoval")
        allowed = (5, 10) if is_watched(self.program.process) else (1, 1)
        with Stillness(self.program.process) as seen:
            self.start_game("1 Joueur", ("dupont", "marie"))
            self.propose("Z")
            self.await_state("Z", "fausse")
            self.screen.key("z")  # refused
            self.program.press("A propos")
            self.program.press("OK")
            self.find_word(self.word())
            self.program.press("Stopper la partie")
            self.leave_scores()
            memory = max(seen.memory, megabytes(self.program.process))
            self.quit()
        print(f"{memory:.0f} MB, {seen.longest * 1000:.0f} ms", end=" ", flush=True)
        self.assertLess(memory, MEMORY * allowed[0])
        self.assertLess(seen.longest, STILL * allowed[1])

    def test_no_picture_is_a_picture_and_no_sound_a_sound(self):
        for name, how in {
                "_play.tga": "random", "_stop.tga": "cut", "_aide.tga": "empty",
                "_Quitter.tga": "pipe", "_outil.tga": "folder", "_sound.tga": tga(30000, 30000),
                "_choix.tga": tga(1024, 1024), "_Apropos.tga": jpeg(30000, 30000),
                "_AutreMot.tga": "missing", "_Reponse.tga": tga(0, 0), "_OK_ovale.tga": "pipe",
                "BETES.JPG": jpeg(30000, 30000),
                "IMG01.BMP": "random", "IMG02.BMP": "cut", "IMG03.BMP": "empty",
                "IMG04.BMP": "pipe", "IMG05.BMP": "folder", "IMG06.BMP": bmp(30000, 30000),
                "IMG07.BMP": bmp(30000, 30000), "IMG08.BMP": "missing",
                "fond_frmSplash.jpg": "pipe", "fond_Fplein.jpg": "random",
                "fond_FMenu.jpg": "cut", "fond_FLstTitre.jpg": jpeg(30000, 30000),
                "fond_FCHoix.jpg": "folder", "fond_Fnom.jpg": "empty",
                "fond_FAbout.jpg": jpeg(65500, 65500), "fond_FScore2.jpg": "pipe",
                "fond_Fmsg1.jpg": "missing", "logo.png": "random", "livre.png": "pipe",
                "icone-16.png": "pipe", "icone-48.png": "random"}.items():
            self.spoil("IMAGES", name, how)
        self.stretch("IMAGES", "_choix.tga", 2 << 30)
        self.stretch("IMAGES", "IMG07.BMP", 2 << 30)
        for name, how in {
                "CALVENO.Wav": "pipe", "AttCaCOm.Wav": wave(8000), "CesPBon.Wav": "random",
                "ohoh.Wav": "cut", "CesBien.Wav": "empty", "Cestbien.Wav": "folder",
                "Cesmoy.Wav": wave(1), "Score.Wav": wave(0), "Quitter.Wav": wave(22050),
                "AlaProch.Wav": "pipe", "Salut1.Wav": "pipe", "CLVMID1.mid": "pipe"}.items():
            self.spoil("SONS", name, how)
        self.stretch("SONS", "AttCaCOm.Wav", 8_000_000)
        self.stretch("SONS", "Cesmoy.Wav", 8_000_000)
        self.stretch("SONS", "Quitter.Wav", 500 << 20)
        self.play()

    def test_large_pictures_that_can_be_read(self):
        for name in os.listdir(os.path.join(self.tree, "IMAGES")):
            if name.startswith("_"):
                self.spoil("IMAGES", name, tga(1024, 1024))
                self.stretch("IMAGES", name, 2 << 30)
            elif name.startswith("fond_"):
                self.spoil("IMAGES", name, jpeg(4096, 3072))
        self.spoil("IMAGES", "BETES.JPG", bmp(4096, 3072))
        self.stretch("IMAGES", "BETES.JPG", 54 + 3 * 4096 * 3072)
        self.play()


main()
