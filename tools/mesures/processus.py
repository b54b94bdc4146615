# SPDX-License-Identifier: GPL-3.0-or-later
"""What the system knows of a process."""
import os
import time


def memoire(numero):
    """Proportional set size, in MiB: what is shared counts in parts."""
    with open(f"/proc/{numero}/smaps_rollup", encoding="ascii") as fichier:
        return next(int(ligne.split()[1]) for ligne in fichier if ligne.startswith("Pss:")) / 1024


def lu(numero):
    """What the disk had to give it, in MiB."""
    with open(f"/proc/{numero}/io", encoding="ascii") as fichier:
        return next(int(ligne.split()[1]) for ligne in fichier
                    if ligne.startswith("read_bytes:")) / 2**20


def processeur(numero):
    """Seconds of all its threads, those that have ended too: the clock that the system keeps for it."""
    return time.clock_gettime(~numero << 3 | 2)  # as clock_getcpuclockid() names it


CACHES = "/proc/sys/vm/drop_caches"


def vider_caches(dossiers):
    """So that the disk is read again; returns by what means. Without the right to empty the system's
    caches: file by file, which leaves what another process has mapped."""
    os.sync()
    if os.access(CACHES, os.W_OK):
        with open(CACHES, "w", encoding="ascii") as fichier:
            fichier.write("3")
        return "caches du système vidés"
    for dossier in dossiers:
        for ou, _, noms in os.walk(dossier):
            for nom in noms:
                try:
                    descripteur = os.open(os.path.join(ou, nom), os.O_RDONLY)
                except OSError:
                    continue
                os.posix_fadvise(descripteur, 0, 0, os.POSIX_FADV_DONTNEED)
                os.close(descripteur)
    return "caches vidés fichier par fichier"
