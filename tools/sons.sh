#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Le Grimoval: makes the sound files of the program from their text sources.
#
#   tools/sons.sh [--table] SOURCES DEST
#
# SOURCES is the folder assets, DEST the folder to fill (made when missing).
#   parole/paroles.txt    -> a wave file for each line: 22050 Hz, one channel, 16 bits
#   parole/voix.txt       the voice that speaks them, a variant for espeak-ng
#   musique/CLVMID1.abc   -> CLVMID1.mid
#
# The same sources give the same files, byte for byte: no date goes into them, and sox neither
# dithers nor draws at random. Ends with 0 only when every file was made and is within the limits
# below; a file appears in DEST only when it is whole. --table prints what was measured.

LC_ALL=C
export LC_ALL
# what the person has set for sox or espeak-ng must not change the sound
unset SOX_OPTS ESPEAK_DATA_PATH

# the limits
RATE=22050
LONGEST=3.0             # seconds, of a prompt
LONGEST_OHOH=0.7        # seconds, of the refusal
SHORTEST=0.25           # seconds, of any of them: less was not spoken
LOUDNESS=-16.5          # dB, of what is spoken, as the ear weighs it
LOUDNESS_SLACK=1.0
PEAK_MOST=-1.0          # dBFS
PEAK_LEAST=-8.0
RMS_LEAST=-21.0         # dBFS, of the whole file
RMS_MOST=-15.0
TUNE_SHORTEST=60.0      # seconds

die() { echo "sons.sh: $*" >&2; exit 255; }   # 255 also stops xargs at once

within() { awk -v x="$1" -v a="$2" -v b="$3" 'BEGIN { exit !(x != "" && x + 0 >= a && x + 0 <= b) }'; }
calc()   { awk "BEGIN { printf \"%.3f\", $1 }"; }

run_sox() { sox -D -R --single-threaded -V1 "$@"; }

# stat_of FILE "NAME" [EFFECT...]: one figure of "sox stats", with the name it has there
stat_of() {
    local file=$1 name=$2
    shift 2
    run_sox "$file" -n "$@" stats 2>&1 | awk -v name="$name" 'index($0, name) == 1 { print $NF; exit }'
}

# loudness FILE: the level in dB of what is spoken, the pauses left out, the lows counted for
# less and the highs for more, as the ear does
loudness() { stat_of "$1" "RMS lev dB" silence 1 0.01 1% -1 0.03 1% highpass 60 treble 4 1680; }

# peak and rms of a file
peak() { stat_of "$1" "Pk lev dB"; }
rms()  { stat_of "$1" "RMS lev dB"; }

# place FILE NAME: moves a whole file into DEST
place() {
    mv -f "$1" "$dest/$2.part$$" && chmod 644 "$dest/$2.part$$" && mv -f "$dest/$2.part$$" "$dest/$2" ||
        die "cannot write $dest/$2"
}

# ---------------------------------------------------------------------------------- prompts

# prompt NAME TEXT SPEED PITCH SPOKEN
prompt() {
    local name=$1 text=$2 speed=$3 pitch=$4 spoken=$5 gain p l r s longest
    [ -n "$speed" ] && [ "$speed" != - ] || speed=142
    [ -n "$pitch" ] && [ "$pitch" != - ] || pitch=50
    [ -n "$spoken" ] && [ "$spoken" != - ] || spoken=$text

    printf '%s\n' "$spoken" |
        espeak-ng --path="$VOICES" -v fr+grimoval -b 1 --stdin -s "$speed" -p "$pitch" -w "$work/said.wav" 2> "$work/complaint" ||
        die "espeak-ng could not say $name: $(head -n 1 "$work/complaint")"
    [ ! -s "$work/complaint" ] || die "espeak-ng is not content with $name: $(head -n 1 "$work/complaint")"
    [ -s "$work/said.wav" ] || die "espeak-ng said nothing for $name"

    # The sound: rumble cut, a little body, the edge around 3 kHz taken down and the consonants
    # above it up, soft parts raised, and a whisper of a room.
    run_sox "$work/said.wav" -r $RATE -c 1 -b 32 "$work/drawn.wav" \
        gain -n -9 \
        highpass 110 \
        equalizer 240 1.0q 2 \
        equalizer 1900 1.2q 1 \
        equalizer 3200 1.2q -1 \
        treble 1.5 5000 \
        compand 0.006,0.15 6:-80,-80,-50,-47,-30,-24,-18,-15,-9,-10 0 -60 0.006 \
        pad 0 0.12 reverb 7 60 12 100 0 -9 \
        gain -n -12 || die "sox could not treat $name"

    # The ends: what is silent goes away, 30 ms of quiet stay, and nothing starts with a click.
    run_sox "$work/drawn.wav" -b 32 "$work/cut.wav" \
        silence 1 0.004 -54d reverse silence 1 0.004 -48d fade q 0.012 reverse fade q 0.004 \
        pad 0.03 0.03 || die "sox could not cut $name"

    # The level: 12 dB under the wanted one, where a limiter has room to work; then up, and down
    # again by the little that the limiter let through. The limiter takes some of the loudness
    # away, so a second round gives it back.
    gain=0
    for _ in 1 2 3; do
        run_sox "$work/cut.wav" -b 32 "$work/level.wav" gain "$gain" \
            compand 0.001,0.05 -90,-90,-14.5,-14.5,-13.2,-13.4,0,-13.2 0 -60 0.002 gain 12 ||
            die "sox could not level $name"
        l=$(loudness "$work/level.wav")
        within "$l" -60 0 || die "$name has no level that can be measured: $l"
        gain=$(calc "$gain + ($LOUDNESS) - ($l)")
    done
    p=$(peak "$work/level.wav")
    within "$p" -60 -0.05 || die "$name is clipped: its peak is $p dBFS"
    gain=$(awk -v p="$p" -v most="$PEAK_MOST" 'BEGIN { g = most - 0.1 - p; printf "%.3f", g < 0 ? g : 0 }')
    run_sox "$work/level.wav" -b 16 -e signed-integer "$work/$name" gain "$gain" ||
        die "sox could not write $name"

    check_prompt "$work/$name" "$name" "$text"
    place "$work/$name" "$name"
    mv -f "$work/row" "$ROWS/$name" || die "cannot write the row of $name"
}

# check_prompt FILE NAME TEXT: the limits, and a row for the table
check_prompt() {
    local file=$1 name=$2 text=$3 longest=$LONGEST s p l r form ends
    [ -s "$file" ] || die "sox made an empty $name"
    form="$(soxi -t "$file") $(soxi -r "$file") $(soxi -c "$file") $(soxi -b "$file") $(soxi -e "$file")"
    [ "$form" = "wav $RATE 1 16 Signed Integer PCM" ] || die "$name is not in the wanted form: $form"
    [ "$name" = ohoh.Wav ] && longest=$LONGEST_OHOH
    s=$(soxi -D "$file") p=$(peak "$file") r=$(rms "$file") l=$(loudness "$file")
    within "$s" $SHORTEST "$(calc "$longest - 0.001")" || die "$name lasts $s s: not between $SHORTEST and $longest s"
    within "$p" $PEAK_LEAST $PEAK_MOST || die "the peak of $name is $p dBFS: not between $PEAK_LEAST and $PEAK_MOST"
    within "$r" $RMS_LEAST $RMS_MOST || die "the level of $name is $r dBFS: not between $RMS_LEAST and $RMS_MOST"
    within "$l" "$(calc "$LOUDNESS - $LOUDNESS_SLACK")" "$(calc "$LOUDNESS + $LOUDNESS_SLACK")" ||
        die "the loudness of $name is $l dB: too far from $LOUDNESS"
    for ends in '' reverse; do
        # shellcheck disable=SC2086  # no effect at all when empty
        within "$(stat_of "$file" "Pk lev dB" $ends trim 0 0.025 | sed 's/^-inf$/-120/')" -200 -50 ||
            die "$name does not begin and end in silence"
    done
    printf '%-13s %6.2f %7.2f %7.2f %7.2f  %s\n' "$name" "$s" "$p" "$r" "$l" "$text" > "$work/row"
}

# ------------------------------------------------------------------------------------- tune

# Reads a MIDI file as bytes, one number a line, and writes it again, as octal escapes, without
# the texts that abc2midi leaves in it and with every track ending on the last bar line. Stops
# with a message on a note that is never let go, that ends after the last bar line, or on any
# other form than the one that abc2midi writes. The last line is a summary: seconds, bars,
# channels, notes, loudest stroke, seconds of quiet before the end.
MIDI_AWK='
function fail(text) { print "! " text; failed = 1; exit }
function number(n,   v) { v = 0; while (n-- > 0) v = v * 256 + byte[at++]; return v }
function length_here(   v, c) { v = 0; do { c = byte[at++]; v = v * 128 + c % 128 } while (c > 127); return v }
function octal(b) { return sprintf("\\%03o", b) }
function delta(v,   s) {
    s = octal(v % 128); v = int(v / 128)
    while (v > 0) { s = octal(v % 128 + 128) s; v = int(v / 128) }
    return s
}
function word(v, n,   s) { s = ""; while (n-- > 0) { s = octal(v % 256) s; v = int(v / 256) } return s }
function put(bytes) { text = delta(now - last) bytes; last = now; body = body text; size += length(text) / 4 }
{ byte[NR] = $1 }
END {
    at = 1
    if (number(4) != 1297377380 || number(4) != 6) fail("not a MIDI file")
    format = number(2); tracks = number(2); division = number(2)
    if (format != 1 || division > 32767) fail("a MIDI file of an unexpected form")
    out = octal(77) octal(84) octal(104) octal(100) word(6, 4) word(1, 2) word(tracks, 2) word(division, 2)
    tempi = 0; bar = 0; notes = 0; loudest = 0; sound = 0; channels = ""; first = -1; close_at = -1
    for (t = 1; t <= tracks; t++) {
        if (number(4) != 1297379947) fail("track " t " is missing")
        stop = number(4); stop += at
        now = 0; last = 0; body = ""; size = 0; status = 0; ended = 0
        while (at < stop) {
            now += length_here()
            if (byte[at] > 127) status = byte[at++]
            if (status == 255) {
                kind = byte[at++]; n = length_here(); data = ""
                from = at
                for (i = 0; i < n; i++) data = data octal(byte[at++])
                if (kind == 81) {
                    tempi++; tempo = byte[from] * 65536 + byte[from + 1] * 256 + byte[from + 2]
                    if (now > 0) fail("the tempo changes on the way")
                }
                if (kind == 88) {
                    if (now > 0) fail("the measure changes on the way")
                    bar = byte[from] * 4 / 2 ^ byte[from + 1] * division
                }
                if (kind == 47) {
                    if (bar == 0) fail("no measure is given")
                    mine = int(now / bar) * bar
                    if (now - mine > bar / 8) fail("track " t " ends within a bar")
                    if (close_at < 0) close_at = mine
                    if (mine != close_at) fail("track " t " has another length than the first")
                    if (last > mine) fail("track " t " goes on after the last bar line")
                    now = mine; put(octal(255) octal(47) octal(0)); ended = 1
                } else if (kind > 15 || kind == 3)
                    put(octal(255) octal(kind) delta(n) data)
                status = 0
            } else if (status >= 128 && status < 240) {
                kind = int(status / 16); channel = status % 16 + 1
                a = byte[at++]; b = ""
                if (kind != 12 && kind != 13) b = byte[at++]
                put(octal(status) octal(a) (b == "" ? "" : octal(b)))
                if (kind == 9 && b > 0) {
                    if (first < 0 || now < first) first = now
                    if (held[channel, a]) fail("a note of channel " channel " is struck while it is held")
                    held[channel, a] = 1; notes++; if (b > loudest) loudest = b
                    if (!(channel in heard)) { heard[channel] = 1; channels = channels (channels == "" ? "" : ",") channel }
                } else if (kind == 8 || kind == 9) {
                    if (!held[channel, a]) fail("a note of channel " channel " is let go twice")
                    held[channel, a] = 0; if (now > sound) sound = now
                }
            } else fail("an event of an unexpected kind: " status)
        }
        if (!ended || at != stop) fail("track " t " has no proper end")
        for (k in held) if (held[k]) fail("a note of track " t " is never let go")
        out = out octal(77) octal(84) octal(114) octal(107) word(size, 4) body
    }
    if (tempi != 1) fail("the tempo is given " tempi " times")
    if (sound > close_at) fail("a note ends after the last bar line")
    if (first > division / 100) fail("the tune begins with silence")
    beat = tempo / 1000000 / division
    while (out != "") { print "= " substr(out, 1, 800); out = substr(out, 801) }
    printf "+ %.3f %d %s %d %d %.3f\n", close_at * beat, close_at / bar, channels, notes, loudest, (close_at - sound) * beat
}'

tune() {
    local name=CLVMID1 said line seconds bars channels notes loudest quiet
    said=$(abc2midi "$sources/musique/$name.abc" -o "$work/raw.mid" 2>&1) || die "abc2midi could not read $name.abc: $said"
    [ -s "$work/raw.mid" ] || die "abc2midi made nothing from $name.abc: $said"
    case $said in
        *[Ee]rror*|*[Ww]arning*) die "abc2midi is not content with $name.abc: $said" ;;
    esac

    od -An -v -tu1 -w1 "$work/raw.mid" | awk "$MIDI_AWK" > "$work/tune" || die "the MIDI file of $name.abc cannot be read"
    line=$(sed -n 's/^! //p' "$work/tune")
    [ -z "$line" ] || die "$name.abc: $line"
    sed -n 's/^= //p' "$work/tune" | while IFS= read -r line; do
        # shellcheck disable=SC2059  # the line is the format: octal escapes only
        printf "$line"
    done > "$work/$name.mid"
    read -r seconds bars channels notes loudest quiet << END
$(sed -n 's/^+ //p' "$work/tune")
END
    [ -s "$work/$name.mid" ] && [ -n "$quiet" ] || die "$name.mid could not be written"
    # what was written must read back as it is
    od -An -v -tu1 -w1 "$work/$name.mid" | awk "$MIDI_AWK" | cmp -s - "$work/tune" || die "$name.mid does not read back"

    within "$seconds" $TUNE_SHORTEST 600 || die "the tune lasts $seconds s: less than $TUNE_SHORTEST s"
    within "$loudest" 20 84 || die "the tune strikes as hard as $loudest: it would cover the voice"
    within "$quiet" 0.5 3 || die "the last note ends $quiet s before the end: not between 0.5 and 3 s"
    place "$work/$name.mid" "$name.mid"
    printf '%-13s %6.2f  %s bars, channels %s, %s notes, strokes up to %s, last note let go %.2f s before the end\n' \
        "$name.mid" "$seconds" "$bars" "$channels" "$notes" "$loudest" "$quiet" > "$ROWS/$name.mid"
}

# ---------------------------------------------------------------------------------- the work

# --one: makes one file. Called back by xargs.
if [ "$1" = --one ]; then
    shift
    sources=$1 dest=$2
    work=$(mktemp -d "${TMPDIR:-/tmp}/sons.XXXXXX") || die "no room for a temporary folder"
    trap 'rm -rf "$work"' EXIT
    if [ "$3" = CLVMID1.mid ]; then tune; else prompt "${@:3}"; fi
    exit 0
fi

table=
[ "$1" = --table ] && { table=1; shift; }
[ $# -eq 2 ] || die "usage: sons.sh [--table] SOURCES DEST"
sources=$1 dest=$2

for need in parole/paroles.txt parole/voix.txt musique/CLVMID1.abc; do
    [ -s "$sources/$need" ] || die "no such source: $sources/$need"
done
command -v espeak-ng >/dev/null 2>&1 || die "espeak-ng is missing (package espeak-ng)"
command -v sox >/dev/null 2>&1 && command -v soxi >/dev/null 2>&1 || die "sox is missing (package sox)"
command -v abc2midi >/dev/null 2>&1 || die "abc2midi is missing (package abcmidi)"
mkdir -p "$dest" && [ -w "$dest" ] || die "cannot write into $dest"

all=$(mktemp -d "${TMPDIR:-/tmp}/sons.XXXXXX") || die "no room for a temporary folder"
trap 'rm -rf "$all"' EXIT
ROWS=$all/rows VOICES=$all/voices list=$all/list
export ROWS VOICES
mkdir -p "$ROWS" "$VOICES/espeak-ng-data/voices/!v" || die "no room for a temporary folder"

# espeak-ng finds a voice only among its data: a folder of links to these, and ours with them
data=$(espeak-ng --version | sed -n 's/.*Data at: *//p')
[ -f "$data/fr_dict" ] || die "espeak-ng has no French (looked in: $data)"
for part in "$data"/*; do
    [ "${part##*/}" = voices ] || ln -s "$part" "$VOICES/espeak-ng-data/" || die "no room for a temporary folder"
done
cp "$sources/parole/voix.txt" "$VOICES/espeak-ng-data/voices/!v/grimoval" || die "no room for a temporary folder"

# one group of seven for each file: sources, dest, name, text, speed, pitch, spoken
printf '%s\0%s\0CLVMID1.mid\0\0\0\0\0' "$sources" "$dest" > "$list"
names=' '
number=0
while IFS= read -r line || [ -n "$line" ]; do
    number=$((number + 1))
    case $line in ''|'#'*) continue ;; esac
    # not "read" with a tab: it would take two tabs for one
    fields=()
    rest=$line$'\t'
    while [ -n "$rest" ]; do fields+=("${rest%%$'\t'*}"); rest=${rest#*$'\t'}; done
    name=${fields[0]}
    case $name in
        *[!A-Za-z0-9.]*|.*) die "paroles.txt, line $number: not a file name: $name" ;;
        *?.Wav) ;;
        *) die "paroles.txt, line $number: not the name of a wave file: $name" ;;
    esac
    [ ${#fields[@]} -le 5 ] && [ -n "${fields[1]}" ] || die "paroles.txt, line $number: a name, a text and at most three more fields"
    case ${fields[2]}${fields[3]} in *[!0-9-]*) die "paroles.txt, line $number: the third and fourth fields are numbers" ;; esac
    case $names in *" $name "*) die "paroles.txt, line $number: $name is there twice" ;; esac
    names="$names$name "
    printf '%s\0%s\0%s\0%s\0%s\0%s\0%s\0' "$sources" "$dest" "$name" "${fields[@]:1:1}" "${fields[2]}" "${fields[3]}" "${fields[4]}" >> "$list"
done < "$sources/parole/paroles.txt"
for name in CALVENO Quitter TPEUQIPO TropTar PaassRap Score CesaiPrg StoArexe AlaProch Salut1 AttCaCOm CesPBon \
            CesBien Cestbien Cesmoy FauFaEff Aideexer confexer Aurevoir ohoh; do
    case $names in *" $name.Wav "*) ;; *) die "paroles.txt has no line for $name.Wav" ;; esac
done

jobs=$(nproc 2>/dev/null) || jobs=2
xargs -0 -n 7 -P "$jobs" bash "$0" --one < "$list" || die "stopped: not every sound was made"
for name in $names CLVMID1.mid; do
    [ -s "$dest/$name" ] && [ -s "$ROWS/$name" ] || die "$dest/$name was not made"
done

if [ -n "$table" ]; then
    printf '%-13s %6s %7s %7s %7s  %s\n' file s 'peak dB' 'RMS dB' 'loud dB' text
    for name in $names CLVMID1.mid; do cat "$ROWS/$name"; done
fi
exit 0
