#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The trial of the Debian package: on a bare system of the same suite as this one, without recommended
# packages, it is installed, measured, played from its menu entry by an ordinary user, given a class's list of
# words, upgraded, removed and purged. The package of one suite is not that of another: the names of the
# libraries that it depends on differ.
#
#   tools/paquet/essai.sh PACKAGE.deb      as root; ends with 77 where it cannot be tried
#
# The bare system is made once, in /var/cache/grimoval-essai/SUITE, from the mirror that apt uses here. All
# mounts lie in a name space of the trial's own: they go with it, however it ends.
set -eu

suite=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
origine=$(. /etc/os-release && echo "${ID^}") # Debian, as its archive calls itself
# MiB, with all that the package pulls in. The drawing library of Debian 13 is larger by sixty, of its compiler.
case $suite in
bookworm) limite=350 ;;
*) limite=420 ;;
esac
telecharges=/var/cache/grimoval-essai/archives
cache=/var/cache/grimoval-essai/$suite
nue=$cache/nue racine=$cache/racine
ici=$(dirname "$(readlink -f "$0")")

dire() { printf '%s\n' "$*"; }
sauter() {
    dire "ESSAI SAUTÉ : $*" >&2
    exit 77
}
rater() {
    dire "ESSAI RATÉ : $*" >&2
    exit 1
}

[ "$(id -u)" -eq 0 ] || sauter "il faut être root"
[ -n "$suite" ] || sauter "ce système ne dit pas de quelle suite il est"
for outil in debootstrap unshare chroot setpriv apt-get dpkg-deb Xvfb dbus-daemon; do
    command -v "$outil" >/dev/null || sauter "il manque $outil"
done
if [ "${1:-}" != --a-part ]; then
    unshare --mount --propagation private true 2>/dev/null || sauter "aucun montage n'est permis ici"
    exec unshare --mount --propagation private "$0" --a-part "$@"
fi
deb=$(readlink -f "$2")
[ -f "$deb" ] || rater "aucun paquet $2"

# ------------------------------------------------------------------------------ the bare system

depots() {
    apt-get indextargets --format "$1" 'Created-By: Packages' "Origin: $origine" | grep "$suite" | sort -u
}

faire_nue() {
    local miroir
    miroir=$(depots '$(CODENAME) $(REPO_URI)' | sed -n "s/^$suite //p" | head -n 1)
    [ -n "$miroir" ] || sauter "apt n'a pas de dépôt de $origine $suite ici"
    dire "Une $origine $suite nue..."
    mkdir -p "$cache" "$telecharges"
    rm -rf "$nue" "$nue.part"
    debootstrap --variant=minbase --cache-dir="$telecharges" "$suite" "$nue.part" "$miroir" \
        >"$cache/debootstrap.log" 2>&1 ||
        sauter "debootstrap n'a pas pu faire le système nu (voir $cache/debootstrap.log)"
    mv "$nue.part" "$nue"
}

preparer() {
    [ -d "$nue" ] || faire_nue
    rm -rf "$racine"
    cp -a "$nue" "$racine"
    depots 'deb $(REPO_URI) $(RELEASE) main' >"$racine/etc/apt/sources.list"
    { apt-config dump | grep -E '^Acquire::(Check|http|https)' || true
      echo 'Binary::apt-get::APT::Keep-Downloaded-Packages "true";'; } >"$racine/etc/apt/apt.conf.d/99essai"
    cp /etc/resolv.conf /etc/hosts "$racine/etc/"
    # What was fetched once is not fetched again.
    mkdir -p "$telecharges/partial"
    mount --bind "$telecharges" "$racine/var/cache/apt/archives"
    mount -t proc proc "$racine/proc"
    echo force-unsafe-io >"$racine/etc/dpkg/dpkg.cfg.d/essai"
    printf '#!/bin/sh\nexit 101\n' >"$racine/usr/sbin/policy-rc.d" # no service is started
    chmod 755 "$racine/usr/sbin/policy-rc.d"
    dans apt-get -qq update || sauter "le dépôt de Debian ne répond pas"
    dans useradd --create-home --uid "$uid" --shell /bin/sh -K UID_MAX=65000 enfant
    # The bus asks for the name of its user: in the trial's name space alone this system knows it.
    { cat /etc/passwd; dans getent passwd enfant; } >"$cache/passwd"
    mount --bind "$cache/passwd" /etc/passwd
}

dans() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 HOME=/root DEBIAN_FRONTEND=noninteractive \
        chroot "$racine" "$@" </dev/null
}

apt() { dans apt-get -qq -y --no-install-recommends "$@" >"$cache/apt.log" 2>&1 || { cat "$cache/apt.log" >&2; return 1; }; }

# KiB of all installed packages
poids() {
    dans dpkg-query -W -f '${db:Status-Abbrev} ${Installed-Size}\n' | awk '/^ii/ { k += $2 } END { print k }'
}

# Everything that a package may leave behind; what apt and dpkg note for themselves is no leaving.
fichiers() {
    (cd "$racine" && find . -xdev \( -path ./proc -o -path ./run -o -path ./tmp -o -path ./home \
        -o -path ./var/log -o -path ./var/cache -o -path ./var/lib/apt -o -path './var/lib/dpkg/*' \) \
        -prune -o -print | sort)
    (cd "$racine" && find var/lib/dpkg -name 'grimoval*')
}

# ------------------------------------------------------------------------------------ the trial

uid=61000
while getent passwd "$uid" >/dev/null; do uid=$((uid + 1)); done
jouer() { /usr/bin/python3 -B "$ici/essai.py" "$racine" "$uid" "$@"; }

# The same package with a higher version.
surclasser() {
    local depot=$racine/tmp/suivant
    dpkg-deb -R "$deb" "$depot"
    sed -i 's/^Version: .*/&+suivante/' "$depot/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$depot" "$racine/tmp/suivant.deb" >/dev/null
    rm -rf "$depot"
}

preparer
avant=$(poids)
apt satisfy "$(dpkg-deb -f "$deb" Depends)" || rater "ce dont le paquet dépend ne s'installe pas"
fichiers >"$cache/sans"

cp "$deb" "$racine/tmp/paquet.deb"
apt install /tmp/paquet.deb || rater "le paquet ne s'installe pas"
pese=$((($(poids) - avant + 1023) / 1024))
dire "Le jeu et tout ce qu'il lui faut pèsent $pese Mio (limite : $limite)."
[ "$pese" -le "$limite" ] || rater "c'est trop"

dire "Une partie, depuis l'entrée du menu..."
jouer Essai.test_a_game_is_heard_played_and_kept || rater "la partie"
[ -z "$(dans dpkg --verify grimoval)" ] || rater "le jeu a changé ses propres fichiers"

dire "La liste d'une classe..."
printf 'Titre : 1. Notre classe\nHIBOU\nPARAPLUIE\nCHAT\n' >"$racine/tmp/CLASSE.txt"
dans grimbases ajouter /tmp/CLASSE.txt || rater "grimbases n'a pas ajouté la liste"
jouer Essai.test_the_class_list_is_played || rater "la liste n'est pas dans le jeu"

dire "La mise à jour..."
surclasser
apt install /tmp/suivant.deb || rater "la mise à jour"
dans dpkg-query -W -f '${Version}\n' grimoval | grep -q suivante || rater "la mise à jour n'est pas faite"
jouer Essai.test_the_class_list_is_played || rater "la liste n'a pas survécu à la mise à jour"

dire "Enlever, puis remettre..."
apt remove grimoval || rater "le paquet ne s'enlève pas"
apt install /tmp/suivant.deb || rater "le paquet ne se remet pas"
jouer Essai.test_the_class_list_is_played || rater "la liste n'a pas survécu"

dire "Tout effacer..."
apt purge grimoval || rater "le paquet ne s'efface pas"
fichiers >"$cache/apres"
diff -u "$cache/sans" "$cache/apres" || rater "il reste ou il manque des fichiers"
[ -s "$racine/home/enfant/.local/share/Calvenor/Le Grimoval/SCORGRIM.TXT" ] ||
    rater "les scores de l'enfant sont perdus"
dire "ESSAI RÉUSSI : le paquet est bon."
