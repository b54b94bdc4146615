# SPDX-License-Identifier: GPL-3.0-or-later
"""What starts another program, in the whole of what is installed: the lines below and no other.
No shell among them, and no name of a program that comes from a file: a base, a list or a setting
that a person was handed must never become a command."""
import re

from arbre import conclure, sans_commentaires

# Each line that may speak of it. The addresses and paths are the program's own: the maker's site and
# mail, catalogue.chm and the help file in the application's folder.
PERMIS = {
    "platform/qt/mixerlibrary.cpp": {  # no program: the library of sound, under its own name
        "#include <dlfcn.h>",
        'void *library = ::dlopen("libSDL2_mixer-2.0.so.0", RTLD_LAZY | RTLD_NODELETE);',
    },
    "platform/qt/qtservices.cpp": {
        "#include <QDesktopServices>",
        "#include <QProcess>",
        "QDesktopServices::openUrl(QUrl::fromUserInput(toQt(address)));",
        'if (!QProcess::startDetached(QStringLiteral("xdg-open"), {mail})) {',
        "QDesktopServices::openUrl(QUrl(mail, QUrl::TolerantMode));",
        "QDesktopServices::openUrl(QUrl::fromEncoded(",
        "#include <sys/wait.h>",
        "void startDetached(std::string program, std::string first, std::string second) {",
        "const pid_t between = ::fork();",
        "if (::fork() == 0) {",
        "::execv(words[0], words);",
        "startDetached(helpViewerFor(programFolder()), file, toUtf8(keyword));",
    },
    "platform/qt/turns.cpp": {  # no program: the copy of an event
        "const std::shared_ptr<QEvent> copy(event.clone());",
    },
}
# Tests and benchmarks start what they test; neither is installed.
AILLEURS = ("tests/", "bench/")
LANCEMENT = re.compile(
    r"\b(?:popen|exec[lv]\w*|posix_spawnp?|v?fork|clone|wordexp|dlopen)\s*\("
    r"|(?<![\w.>])system\s*\(\s*[^)\s]"
    r"|\bQProcess\b|\bQDesktopServices\b|\bstartDetached\b|\bsetProgram\b|\bShellExecute\w*\b"
    r"|<(?:spawn\.h|dlfcn\.h|sys/wait\.h|wordexp\.h)>")


def verifier(arbre):
    for chemin in arbre.fichiers(".cpp", ".h"):
        if chemin.startswith(AILLEURS):
            continue
        permis = PERMIS.get(chemin, set())
        lignes = sans_commentaires(arbre.texte(chemin)).splitlines()
        for numero, ligne in enumerate(lignes, 1):
            if LANCEMENT.search(ligne) and ligne.strip() not in permis:
                arbre.faute("lancement", chemin, f"« {ligne.strip()} » lance un programme", numero)
    for chemin, permis in PERMIS.items():
        la = {ligne.strip() for ligne in sans_commentaires(arbre.texte(chemin)).splitlines()}
        for ligne in sorted(permis - la):
            arbre.faute("perime", chemin, f"« {ligne} » n'y est plus : à ôter de la liste")


conclure(verifier)
