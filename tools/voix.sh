#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Le Grimoval: looks at a folder of one's own recordings, and says in French, one line a file, what is
# good and what to mend.
#
#   tools/voix.sh DOSSIER [PAROLES]
#
# PAROLES is the table of the names, assets/parole/paroles.txt if it is not given. Ends with 0 if the
# game can play every recording, with 1 if one is to be mended, with 2 if there is nothing to look at.
# "bon": as it should be. "passable": it will be heard, but it could be better. "à refaire": it would
# not be heard, or not well.

# figures with a point, names byte for byte
LC_ALL=C
export LC_ALL
unset SOX_OPTS

LONGEST=3.0         # seconds, of a prompt
LONGEST_OHOH=0.7    # seconds, of the refusal
TOO_LONG=10         # seconds: more hides what happens next
SHORTEST=0.15       # seconds: less is no word
SILENCE=0.3         # seconds of it before the first sound
QUIET=-24           # dBFS, of what is spoken: a little low beside the music
TOO_QUIET=-36       # dBFS: lost under it

dire() { printf '%s\n' "$*"; }

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
    dire "Donnez le dossier de vos enregistrements." >&2
    exit 2
fi
dossier=$1 paroles=${2:-$(dirname "$0")/../assets/parole/paroles.txt}
if [ ! -d "$dossier" ]; then
    dire "Ce dossier n'existe pas : $dossier" >&2
    exit 2
fi
if ! command -v sox >/dev/null 2>&1 || ! command -v soxi >/dev/null 2>&1; then
    dire "Il manque le programme sox (paquet sox)." >&2
    exit 2
fi
if [ ! -r "$paroles" ]; then
    dire "Il manque la table des paroles : $paroles" >&2
    exit 2
fi

noms=$(sed -n 's/^\([A-Za-z0-9]*\.Wav\)\t.*/\1/p' "$paroles")

au_plus()  { awk -v a="$1" -v b="$2" 'BEGIN { exit !(a + 0 <= b + 0) }'; }
virgule()  { awk -v a="$1" 'BEGIN { printf "%.1f", a }' | tr . ,; }
# mesurer FILE NAME [EFFECT...]: one figure of "sox stats"
mesurer() {
    local fichier=$1 nom=$2
    shift 2
    sox -V1 "$fichier" -n "$@" stats 2>&1 | awk -v nom="$nom" 'index($0, nom) == 1 { print $NF; exit }'
}

# Adds to what is to be mended, or to what could be better.
refaire() { fautes="$fautes${fautes:+ ; }$1"; }
soigner() { conseils="$conseils${conseils:+ ; }$1"; }

forme() {
    local codage canaux bits frequence
    codage=$(soxi -e "$fichier" 2>/dev/null)
    canaux=$(soxi -c "$fichier" 2>/dev/null)
    bits=$(soxi -b "$fichier" 2>/dev/null)
    frequence=$(soxi -r "$fichier" 2>/dev/null)
    if [ "$codage" != "Signed Integer PCM" ] || [ "$bits" != 16 ]; then
        refaire "le format n'est pas PCM 16 bits : enregistrez-le sous « WAV, PCM 16 bits signé »"
    fi
    if [ "$canaux" -gt 2 ]; then
        refaire "$canaux pistes : enregistrez en mono ou en stéréo"
    fi
    if [ "$frequence" -lt 8000 ] || [ "$frequence" -gt 48000 ]; then
        refaire "$frequence Hz : choisissez une fréquence de 8000 à 48000 Hz, 44100 par exemple"
    fi
}

duree() {
    local longueur longue=$LONGEST
    longueur=$(soxi -D "$fichier" 2>/dev/null)
    [ "$nom" = ohoh.Wav ] && longue=$LONGEST_OHOH
    if ! au_plus "$SHORTEST" "$longueur"; then
        refaire "trop court : on n'y entend pas un mot"
    elif ! au_plus "$longueur" "$TOO_LONG"; then
        refaire "$(virgule "$longueur") s : bien trop long, restez sous $(virgule "$longue") s"
    elif ! au_plus "$longueur" "$longue"; then
        soigner "$(virgule "$longueur") s : un peu long, mieux vaut moins de $(virgule "$longue") s"
    fi
}

niveau() {
    local pointe force plats attente
    pointe=$(mesurer "$fichier" "Pk lev dB")
    if [ "$pointe" = -inf ] || ! au_plus -60 "$pointe"; then
        refaire "on n'entend rien : vérifiez le micro"
        return
    fi
    # What is spoken, the pauses left out: what lies 40 dB under the loudest is a pause.
    force=$(mesurer "$fichier" "RMS lev dB" gain -n silence 1 0.01 1% -1 0.03 1%)
    force=$(awk -v a="$force" -v b="$pointe" 'BEGIN { print a + b }')
    plats=$(mesurer "$fichier" "Flat factor")
    if au_plus -0.1 "$pointe" && au_plus 1 "$plats"; then
        refaire "le son sature : éloignez-vous du micro ou baissez son niveau"
    elif ! au_plus "$TOO_QUIET" "$force"; then
        refaire "trop faible : rapprochez-vous du micro ou montez son niveau"
    elif ! au_plus "$QUIET" "$force"; then
        soigner "un peu faible : parlez plus fort ou plus près du micro"
    fi
    attente=$(awk -v a="$(soxi -D "$fichier")" -v b="$(parle)" 'BEGIN { print a - b }')
    if ! au_plus "$attente" "$SILENCE"; then
        soigner "$(virgule "$attente") s de silence au début : coupez-le"
    fi
}

# The seconds from the first sound on.
parle() {
    sox -V1 "$fichier" -n gain -n silence 1 0.01 1% stat 2>&1 | awk '/^Length/ { print $NF; exit }'
}

echec=0 vus=0
shopt -s nullglob dotglob
for fichier in "$dossier"/*; do
    nom=${fichier##*/} fautes='' conseils=''
    if [ -d "$fichier" ] || [ "${nom#.}" != "$nom" ] || [ "$nom" = CLVMID1.mid ]; then
        continue
    fi
    if ! printf '%s\n' "$noms" | grep -qxF "$nom"; then
        voulu=$(printf '%s\n' "$noms" | grep -ixF "$nom")
        if [ -n "$voulu" ]; then
            refaire "les majuscules comptent : renommez-le $voulu"
        else
            soigner "ce nom n'est pas celui d'une parole, le jeu ne le lira jamais"
        fi
    fi
    if [ "$(soxi -t "$fichier" 2>/dev/null)" != wav ] || [ "$(head -c 4 "$fichier")" != RIFF ]; then
        [ -n "$conseils" ] || refaire "ce n'est pas un fichier WAV : enregistrez-le sous « WAV, PCM 16 bits signé »"
    elif [ "$(soxi -s "$fichier")" = 0 ]; then
        refaire "il est vide : enregistrez-le de nouveau"
    else
        forme
        duree
        niveau
    fi
    if [ -n "$fautes" ]; then
        dire "$nom : à refaire : $fautes${conseils:+ ; $conseils}"
        echec=1
    elif [ -n "$conseils" ]; then
        dire "$nom : passable : $conseils"
    else
        dire "$nom : bon"
    fi
    vus=$((vus + 1))
done

if [ "$vus" = 0 ]; then
    dire "Il n'y a aucun enregistrement dans $dossier" >&2
    exit 2
fi
manquants=$(for nom in $noms; do [ -f "$dossier/$nom" ] || printf ' %s' "$nom"; done)
[ -z "$manquants" ] || dire "Gardent la voix du jeu :$manquants"
if [ $echec = 0 ]; then
    dire "Tout peut servir : copiez ces fichiers dans le dossier SONS du jeu."
else
    dire "Il y a des enregistrements à refaire."
fi
exit $echec
