# SPDX-License-Identifier: GPL-3.0-or-later
# What must be installed for each word of grim, and how it comes in; grim reads this.
# shellcheck shell=bash disable=SC2034

# What must be installed, by use: Debian packages, one list for people and machines.
paquets_construire='g++ cmake ninja-build pkgconf qt6-base-dev libgl1-mesa-dev libsdl2-mixer-dev
    espeak-ng sox abcmidi
    librsvg2-bin imagemagick fonts-noto-color-emoji libxml2-utils fp-utils'
paquets_jouer='qt6-wayland fonts-sil-andika fonts-liberation at-spi2-core
    libfluidsynth3 timgm6mb-soundfont'
paquets_ecran='xvfb xauth openbox xdotool x11-utils x11-xkb-utils xkb-data dbus-daemon at-spi2-core
    python3 python3-gi gir1.2-atspi-2.0'
paquets_orthographe='python3 hunspell hunspell-fr-classical'
paquets_tester="libgtest-dev librapidcheck-dev cups-daemon cups-client poppler-utils pulseaudio groff-base
    strace libfaketime weston x11-xserver-utils $paquets_orthographe"
paquets_mesurer='libbenchmark-dev python3-xlib'
paquets_memoire='valgrind'
paquets_paquet='dpkg-dev file lintian desktop-file-utils appstream man-db'
paquets_essai='debootstrap util-linux'
paquets_systemes='debootstrap util-linux'
paquets_secouer='clang' # and its sanitizers, see installer_clang
paquets_mutations='binutils python3'
paquets_couverture='gcovr python3'
paquets_verifier="python3 $paquets_orthographe"

installe() { dpkg-query -W -f '${db:Status-Abbrev}' "$1" 2>/dev/null | grep -q '^.i'; }

en_root() {
    if [ "$(id -u)" -eq 0 ]; then
        env DEBIAN_FRONTEND=noninteractive "$@"
    elif command -v sudo >/dev/null 2>&1; then
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    else
        echouer "il faut être root (ou avoir sudo)${manque:+ pour installer :$manque}"
    fi
}

obtenir() {
    en_root apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "$@" </dev/null
}

actualiser() { en_root apt-get -o DPkg::Lock::Timeout=600 update </dev/null; }

# installer PAQUET...: installs those that are missing, and asks the system for nothing otherwise.
installer() {
    if [ -n "${GRIM_SANS_INSTALLER:-}" ]; then
        return 0
    fi
    if ! command -v apt-get >/dev/null 2>&1 || ! command -v dpkg-query >/dev/null 2>&1; then
        dire "Ce système n'est pas Debian ni un de ses enfants : grim n'y installe rien." >&2
        dire "Il faut installer ce que ces paquets de Debian contiennent :" >&2
        printf '    %s\n' "$@" | sort -u >&2
        dire "puis recommencer avec GRIM_SANS_INSTALLER=oui ./grim ..." >&2
        exit 1
    fi
    manque=''
    local inconnu='' paquet
    for paquet in "$@"; do
        if ! installe "$paquet" && [[ " $manque " != *" $paquet "* ]]; then
            manque="$manque $paquet"
            apt-cache show "$paquet" >/dev/null 2>&1 || inconnu=oui
        fi
    done
    [ -n "$manque" ] || return 0
    dire "Installation de ce qui manque :$manque"
    if [ -n "$inconnu" ]; then
        actualiser
    fi
    # A list of yesterday may name packages that are no more: then once more with a new one.
    # shellcheck disable=SC2086
    obtenir $manque || { actualiser && obtenir $manque; } ||
        echouer "l'installation n'a pas réussi :$manque"
}

# The sanitizers of clang are in a package with clang's number in its name, which clang's own tells.
installer_clang() {
    # shellcheck disable=SC2086
    installer $paquets_secouer
    [ -z "${GRIM_SANS_INSTALLER:-}" ] || return 0
    local numero
    numero=$(dpkg-query -W -f '${Depends}' clang | sed -n 's/.*clang-\([0-9]*\).*/\1/p')
    [ -n "$numero" ] || echouer "le paquet clang ne dit plus quel est son numéro"
    installer "libclang-rt-$numero-dev"
}
