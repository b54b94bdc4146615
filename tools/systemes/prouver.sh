#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The proof on the systems that the game is for: on a Debian of each suite that has nothing yet, this tree is
# built, tested, verified, packed, and its package tried.
#
#   tools/systemes/prouver.sh [SUITE]...    as root, with network; ends with 77 where it cannot be done
#
# Systems, builds and journals stay in /var/cache/grimoval-systemes, some 8 GB a suite: what is proven of a tree is not
# proven again until one of its files changes. Nothing stays mounted and no process stays, however it ends: all of them
# lie in name spaces of the proof's own.
set -eu

suites_toutes='bookworm trixie'
epreuves='construire tester verifier paquet essai'
cache=/var/cache/grimoval-systemes
telecharges=$cache/archives
ici=$(cd "$(dirname "$(readlink -f "$0")")/../.." && pwd)

dire() { printf '%s\n' "$*"; }
sauter() {
    dire "SYSTÈMES SAUTÉS : $*" >&2
    exit 77
}

a_part=(unshare --mount --pid --fork --kill-child --propagation private)
if [ "${1:-}" != --a-part ]; then
    for suite; do
        if [[ " $suites_toutes " != *" $suite "* ]]; then
            dire "La suite « $suite » n'est pas de celles-ci : $suites_toutes" >&2
            exit 2
        fi
    done
    [ "$(id -u)" -eq 0 ] || sauter "il faut être root"
    for outil in debootstrap unshare chroot sha256sum; do
        command -v "$outil" >/dev/null || sauter "il manque $outil"
    done
    "${a_part[@]}" true 2>/dev/null ||
        sauter "aucun montage n'est permis ici ; un conteneur doit avoir le droit CAP_SYS_ADMIN"
    exec "${a_part[@]}" "$0" --a-part "$@"
fi
shift
[ $# -gt 0 ] || eval "set -- $suites_toutes"
mkdir -p "$telecharges/partial"
exec 9>"$cache/verrou"
flock -n 9 || sauter "une autre preuve est en cours"

# ---------------------------------------------------------------------------------- the systems

# The lines of apt for a suite: from the mirrors of this system where it is a Debian itself.
depots() {
    local suite=$1 lignes hote
    # shellcheck source=/dev/null
    hote=$(. /etc/os-release && echo "${VERSION_CODENAME:-aucune}")
    lignes=$(apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) main' 'Created-By: Packages' 'Origin: Debian' \
        2>/dev/null |
        grep " $hote" | grep -v backports | sed "s/ $hote/ $suite/" | sort -u || true)
    printf '%s\n' "${lignes:-deb http://deb.debian.org/debian $suite main
deb http://deb.debian.org/debian $suite-updates main
deb http://deb.debian.org/debian-security $suite-security main}"
}

# Mounts what a system needs, in the name space of the proof alone.
monter() {
    mount --bind "$racine" "$racine" # a root of its own: in it the trial of the package makes a name space, too
    mount -t proc proc "$racine/proc"
    mount --rbind /dev "$racine/dev"
    mount -t tmpfs -o mode=1777 tmpfs "$racine/dev/shm"
    mount --rbind /sys "$racine/sys"
    mount -o remount,bind,ro "$racine/sys"
    mount -t tmpfs -o mode=755 tmpfs "$racine/run"
    mkdir -p "$racine/var/cache/grimoval-essai/archives"
    # What was fetched once is not fetched again.
    mount --bind "$telecharges" "$racine/var/cache/apt/archives"
    mount --bind "$telecharges" "$racine/var/cache/grimoval-essai/archives"
    cp /etc/resolv.conf /etc/hosts "$racine/etc/"
}

dans() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 HOME=/root DEBIAN_FRONTEND=noninteractive TERM=dumb \
        chroot "$racine" "$@" </dev/null 9>&-
}

# A system with nothing but what each Debian has.
preparer() {
    local suite=$1 miroir
    miroir=$(depots "$suite" | sed -n "s/^deb \([^ ]*\) $suite main\$/\1/p" | head -n 1)
    if [ ! -d "$racine" ]; then
        dire "Une Debian $suite nue..."
        rm -rf "$racine.part"
        debootstrap --variant=minbase --cache-dir="$telecharges" "$suite" "$racine.part" "$miroir" \
            >"$journaux/debootstrap" 2>&1 || { tail "$journaux/debootstrap" >&2; return 1; }
        mv "$racine.part" "$racine"
    fi
    depots "$suite" >"$racine/etc/apt/sources.list"
    { apt-config dump 2>/dev/null | grep -E '^Acquire::(Check|http|https)' || true
      echo 'Binary::apt-get::APT::Keep-Downloaded-Packages "true";'; } >"$racine/etc/apt/apt.conf.d/99preuve"
    echo force-unsafe-io >"$racine/etc/dpkg/dpkg.cfg.d/preuve"
    printf '#!/bin/sh\nexit 101\n' >"$racine/usr/sbin/policy-rc.d" # no service is started
    chmod 755 "$racine/usr/sbin/policy-rc.d"
    monter
    { dans apt-get update && dans apt-get -y dist-upgrade; } >"$journaux/apt" 2>&1 ||
        { tail "$journaux/apt" >&2; return 1; }
}

# The tree as it stands, without its builds; those of the system stay beside it.
sources() { tar -C "$ici" --exclude=./.git --exclude='./build' --exclude='./build-*' --exclude=__pycache__ -cf - .; }

copier() {
    mkdir -p "$racine/root/grimoval"
    find "$racine/root/grimoval" -mindepth 1 -maxdepth 1 ! -name build ! -name 'build-*' -exec rm -rf {} +
    sources | tar -xf - -C "$racine/root/grimoval"
}

empreinte() {
    (cd "$ici" && find . \( -name .git -o -name build -o -name 'build-*' -o -name __pycache__ \) -prune -o -type f -print0 |
        sort -z | xargs -0 sha256sum | sha256sum | cut -d ' ' -f 1)
}

# ----------------------------------------------------------------------------------- the proof

# The result of one trial in $faits: "bon" and the minutes, or "MAUVAIS" and the minutes. What was good for this very
# tree stays so.
eprouver() {
    local suite=$1 mot=$2 debut statut=0
    local fait=$faits/$mot
    if grep -qs "^$arbre bon" "$fait"; then
        dire "$suite, $mot : déjà bon"
        return 0
    fi
    local commande=("$mot")
    [ "$mot" != essai ] || commande=(paquet essai)
    dire "$suite, $mot... (journal : $journaux/$mot)"
    debut=$SECONDS
    dans bash -c 'cd /root/grimoval && ./grim "$@"' grim "${commande[@]}" >"$journaux/$mot" 2>&1 || statut=$?
    local minutes=$(((SECONDS - debut + 30) / 60))
    if [ $statut -eq 0 ]; then
        echo "$arbre bon $minutes" >"$fait"
    else
        echo "$arbre MAUVAIS $minutes" >"$fait"
        tail -n 15 "$journaux/$mot" >&2
    fi
    return $statut
}

# One cell of the table.
dit_de() {
    local arbre_de dit minutes
    read -r arbre_de dit minutes <"$cache/$1.faits/$2" 2>/dev/null || true
    if [ "${arbre_de:-}" = "$arbre" ]; then
        echo "$dit, $minutes min"
    else
        echo "pas fait"
    fi
}

arbre=$(empreinte)
mauvais=0
for suite; do
    racine=$cache/$suite journaux=$cache/$suite.journaux faits=$cache/$suite.faits
    mkdir -p "$journaux" "$faits"
    if ! preparer "$suite"; then
        dire "$suite : le système n'a pas pu être préparé"
        mauvais=1
        continue
    fi
    copier
    for mot in $epreuves; do
        if ! eprouver "$suite" "$mot"; then
            mauvais=1
            [ "$mot" != construire ] || break # the others build it, too
        fi
    done
done

echo
printf '%-10s' suite
# shellcheck disable=SC2086
printf ' %-16s' $epreuves
echo "le jeu et ce qu'il lui faut"
for suite; do
    printf '%-10s' "$suite"
    for mot in $epreuves; do printf ' %-16s' "$(dit_de "$suite" "$mot")"; done
    sed -n "s/^Le jeu et tout ce qu'il lui faut pèsent \([0-9]*\) Mio.*/\1 Mio/p" "$cache/$suite.journaux/essai" \
        2>/dev/null || echo
done
exit $mauvais
