#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# secouer.sh BUILD SECONDS: the inputs of the tree, then bytes of chance, for each target of a build, two
# at a time. An input that breaks something stays in the build; what was found besides is kept for the next call.
set -eu
fuzz=$1 secondes=$2 cible=${3:-}
ici=$(cd "$(dirname "$(readlink -f "$0")")/.." && pwd)
memoire=/dev/shm # the folders that the targets make are many and small
[ -w $memoire ] || memoire=${TMPDIR:-/tmp}

un() {
    local dossier=$fuzz/secouer/$cible journal=$fuzz/secouer/$cible.log statut=0
    mkdir -p "$dossier"
    "$fuzz/tests/fuzz/fuzz-inputs" "$ici/tests/fuzz/inputs/$cible" "$dossier"
    travail=$(mktemp -d "$memoire/grimoval-fuzz-XXXXXX")
    trap 'rm -rf "$travail"' EXIT
    # Qt takes 128 MB for one picture, and nothing else of so few bytes may come near it.
    ASAN_OPTIONS=malloc_context_size=3 QT_QPA_PLATFORM=offscreen TMPDIR=$travail "$fuzz/tests/fuzz/fuzz-$cible" \
        -max_total_time="$secondes" -max_len=4096 -entropic=0 -timeout=10 -rss_limit_mb=2000 -malloc_limit_mb=150 \
        -print_final_stats=1 -artifact_prefix="$fuzz/secouer/$cible-" "$dossier" \
        >"$journal" 2>&1 </dev/null || statut=$?
    trouves=$(sed -n 's/.*Test unit written to //p' "$journal")
    dernier() { sed -n "s/.*$1 *\([0-9]*\).*/\1/p" "$journal" | tail -1; }
    printf '%-10s %10s %8s %7s %7s   %s\n' "$cible" "$(dernier number_of_executed_units:)" \
        "$(dernier average_exec_per_sec:)" "$(dernier ' cov:')" "$(dernier ' corp:')" \
        "$([ $statut -eq 0 ] && echo aucune || echo "UNE : ${trouves:-$journal}")"
    return $statut
}

if [ -n "$cible" ]; then
    un
    exit
fi
printf '%-10s %10s %8s %7s %7s   %s\n' cible essais 'par s' arcs entrées faute
for programme in "$fuzz"/tests/fuzz/fuzz-*; do
    nom=${programme##*/fuzz-}
    [ "$nom" = inputs ] || echo "$nom"
done | xargs -P 2 -n 1 "$0" "$fuzz" "$secondes"
