#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Le Grimoval: pictures of every window at several sizes, side by side in FOLDER/index.html, with those
# of the gallery before it, which stays in FOLDER-avant.
#
#   tools/galerie.sh VUES DATA FOLDER SIZE...     a size: 1366x768, or 2732x1536@2 with its pixel ratio
#
# One view is shown as three kinds of colour blindness see it, too: the matrices for a severity of 1
# of Machado, Oliveira and Fernandes, "A Physiologically-based Model for Simulation of Color Vision
# Deficiency", 2009, applied to linear light.
set -eu -o pipefail
export LC_ALL=C

vues=$1 data=$2 folder=$3
shift 3
scripts=$(dirname "$0")/vues
coloured=lettre_survolee # letters found and wrong, the curtain, a lit button
blind='protanopie:0.152286,1.052583,-0.204868,0.114503,0.786281,0.099216,-0.003882,-0.048116,1.051998
deuteranopie:0.367322,0.860646,-0.227968,0.280085,0.672501,0.047413,-0.011820,0.042940,0.968881
tritanopie:1.255528,-0.076749,-0.178779,-0.078411,0.930809,0.147602,0.004733,0.691367,0.303900'

# The gallery before this one stays beside it, to compare.
before=${folder%/}-avant
if [ -f "$folder/index.html" ]; then
    rm -rf "${before:?}"
    mv "$folder" "$before"
fi
for size; do
    rm -rf "${folder:?}/$size"
    mkdir -p "$folder/$size"
    ratio=1
    [[ $size != *@* ]] || ratio=${size#*@}
    "$vues" "$data" "$folder/$size" "${size%@*}" "$ratio" "$scripts"/{vues,aide}.script
done

convert=$(command -v convert-im6.q16 || command -v convert)
figure() { printf '<figure><a href="%s"><img src="%s" alt="" loading="lazy"></a><figcaption>%s</figcaption></figure>\n' "$1" "$1" "$2"; }
{
    cat <<'FIN'
<!DOCTYPE html>
<html lang="fr"><head><meta charset="utf-8"><title>Le Grimoval : toutes les vues</title>
<style>
body { font-family: sans-serif; margin: 1.5em; background: #fff7e2; color: #2b1b0e; }
div { display: flex; gap: 1em; }
figure { margin: 0; flex: 1; }
img { width: 100%; border: 1px solid #a8741a; }
</style></head><body>
<h1>Le Grimoval : toutes les vues</h1>
<p>La fenêtre du jeu entière, sans les cadres que le gestionnaire de fenêtres ajoute. Un clic sur une image la montre
dans sa taille.</p>
FIN
    while IFS=$'\t' read -r name caption; do
        printf '<h2>%s</h2>\n<div>\n' "$caption"
        for size; do
            figure "$size/$name.png" "$size"
            if [ -f "$before/$size/$name.png" ]; then
                figure "../${before##*/}/$size/$name.png" "$size, avant"
            fi
        done
        printf '</div>\n'
    done <"$folder/$1/vues.txt"
    printf '<h2>Une vue pour des yeux qui distinguent mal les couleurs</h2>\n<div>\n'
    while IFS=: read -r kind matrix; do
        "$convert" "$folder/$1/$coloured.png" -colorspace RGB -color-matrix "${matrix//,/ }" -colorspace sRGB \
            "$folder/$kind.png"
        figure "$kind.png" "$kind"
    done <<<"$blind"
    printf '</div>\n</body></html>\n'
} >"$folder/index.html"
