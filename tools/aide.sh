#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Le Grimoval: makes the help file and the catalogue of the themes.
#
#   tools/aide.sh aide ASSETS FILE VIEWS           pages of ASSETS/aide, pictures of ASSETS/images, and of the
#                                                  windows in VIEWS -> FILE; vue_NAME.png of a page is NAME.png
#   tools/aide.sh catalogue ASSETS FILE PICTURES   themes of ASSETS/mots, their pictures made before in the
#                                                  folder PICTURES -> FILE, a compiled help file (needs
#                                                  chmcmd, of Free Pascal)
#
# The form of the help file is told in tools/aide/helpfile.h. The same sources give the same files, byte for
# byte. Ends with 0 only when the file was made; it appears only when it is whole.

LC_ALL=C
MAGICK_THREAD_LIMIT=1
OMP_NUM_THREADS=1
export LC_ALL MAGICK_THREAD_LIMIT OMP_NUM_THREADS

die() { echo "aide.sh: $*" >&2; exit 1; }

find_tool() {
    local c
    for c; do
        command -v "$c" >/dev/null 2>&1 && { echo "$c"; return 0; }
    done
    return 1
}

# part KIND NAME FILE [TITLE]: one part of the help file
part() {
    printf '%s %s %d%s\n' "$1" "$2" "$(wc -c <"$3")" "${4:+ $4}"
    cat "$3"
    printf '\n'
}

# The values of an attribute in the pages given, each once: names ATTRIBUTE FILE...
names() {
    local attribute=$1
    shift
    grep -oh "$attribute=\"[^\"]*\"" "$@" | sed 's/^[^"]*"//; s/"$//' | sort -u
}

aide() {
    local assets=$1 file=$2 views=$3 page name title link drawing colours
    [ -f "$assets/aide/index.html" ] || die "no index page in $assets/aide"
    for page in "$assets"/aide/*.html; do
        [[ $(basename "$page") =~ ^[a-z0-9_]+\.html$ ]] || die "$page: only small letters, digits and _ in a name"
        iconv -f UTF-8 -t UTF-16LE "$page" >/dev/null 2>&1 || die "$page is not UTF-8"
    done
    for link in $(names href "$assets"/aide/*.html); do
        [ -f "$assets/aide/${link%%#*}" ] || die "a page leads to $link, which is no page"
    done
    {
        echo 'GRIMHLP 1'
        for page in "$assets"/aide/*.html; do
            # In French these signs never begin a line.
            sed -e 's/ \([:;!?]\)/\xc2\xa0\1/g' -e 's/ »/\xc2\xa0»/g' -e 's/« /«\xc2\xa0/g' "$page" >"$work/page.html"
            title=$(sed -n 's|.*<title>\(.*\)</title>.*|\1|p' "$page")
            [ -n "$title" ] || die "$page has no title"
            part PAGE "$(basename "$page" .html)" "$work/page.html" "$title"
        done
        for name in $(names src "$assets"/aide/*.html); do
            if [[ $name == vue_* ]]; then
                drawing=$views/${name#vue_}
                [ -f "$drawing" ] || die "no view for the picture $name"
                cp "$drawing" "$work/drawn.png"
                colours='+dither -colors 256'
            else
                drawing=$assets/images/faces/${name%.png}.svg
                [ -f "$drawing" ] || drawing=$assets/images/${name%.png}.svg
                [ -f "$drawing" ] || die "no drawing for the picture $name"
                rsvg-convert -w 128 -h 128 -f png -o "$work/drawn.png" "$drawing" || die "cannot draw $drawing"
                colours=''
            fi
            # shellcheck disable=SC2086
            "$CONVERT" "$work/drawn.png" $colours -strip -depth 8 \
                -define png:exclude-chunks=date,time,tEXt,zTXt,iTXt -define png:compression-level=9 \
                "PNG:$work/picture.png" || die "cannot make $name"
            part IMAGE "$name" "$work/picture.png"
        done
        echo END
    } >"$work/made" || exit 1
}

# What stands for itself in HTML.
escape() { sed 's/&/\&amp;/g; s/</\&lt;/g; s/>/\&gt;/g'; }

# One page of HTML, in the code page of such files: html TITLE <BODY
html() {
    {
        printf '<html lang="fr"><head>\n'
        printf '<meta http-equiv="Content-Type" content="text/html; charset=windows-1252">\n'
        printf '<title>%s</title></head>\n<body bgcolor="#FFF7E2" text="#2B1B0E">\n' "$1"
        cat
        printf '</body></html>\n'
    } | sed 's/’/'"'"'/g' | iconv -f UTF-8 -t WINDOWS-1252
}

# heading KEY SOURCE: what stands behind "KEY :" at the top of a theme
heading() { sed -n "s/^$1 : *//p" "$2"; }

catalogue() {
    local assets=$1 pictures=$2 source stem title picture level words text list="$work/list"
    for source in "$assets"/mots/*.txt; do
        stem=$(basename "$source" .txt)
        level=$(heading Niveau "$source" | escape)
        title=$(heading Titre "$source" | escape)
        picture=$(heading Image "$source")
        words=$(grep -cEv '^(#|(Titre|Image|Niveau|Origine) :|[[:space:]]*$)' "$source")
        [ -n "$title" ] && [ $words -gt 0 ] || die "$source is no theme"
        text=$(printf '<p>%sMots à trouver : <b>%d</b></p>' \
            "${level:+Niveau : <b>$level</b><br>}" $words)
        if [ -n "$picture" ] && [ -f "$pictures/$picture.JPG" ]; then
            "$CONVERT" "JPEG:$pictures/$picture.JPG" -resize 400x300 -strip -quality 85 "JPEG:$work/$stem.jpg" ||
                die "cannot make the picture of $stem"
            text="<p><img src=\"$stem.jpg\" width=\"400\" height=\"300\" alt=\"\"></p>$text"
        fi
        printf '<h1>%s</h1>\n%s\n<p><a href="index.html">Tous les thèmes</a></p>\n' "$title" "$text" |
            html "$title" >"$work/$stem.html" || die "$source has a character that the catalogue cannot hold"
        printf '%s\t%s\t%s\t%d\n' "$title" "$stem" "$level" $words >>"$list"
    done
    sort -o "$list" "$list"

    {
        printf '<h1>Les thèmes du Grimoval</h1>\n'
        printf '<p>Voici les thèmes livrés avec le jeu. On en choisit un avec le bouton « Changer de thème ».</p>\n'
        printf '<table border="1" cellspacing="0" cellpadding="6">\n'
        printf '<tr><th align="left">Thème</th><th align="left">Niveau</th><th align="left">Mots</th></tr>\n'
        while IFS=$'\t' read -r title stem level words; do
            printf '<tr><td><a href="%s.html">%s</a></td><td>%s</td><td>%s</td></tr>\n' \
                "$stem" "$title" "$level" "$words"
        done <"$list"
        printf '</table>\n'
    } | html 'Les thèmes du Grimoval' >"$work/index.html" || die 'the index of the catalogue cannot be written'

    # The table of contents, in the form that the compiler reads.
    {
        entry() {
            printf '<LI><OBJECT type="text/sitemap"><param name="Name" value="%s">' "${1//\"/&quot;}"
            printf '<param name="Local" value="%s"></OBJECT>\n' "$2"
        }
        printf '<HTML><BODY>\n<UL>\n'
        entry 'Les thèmes du Grimoval' index.html
        printf '<UL>\n'
        while IFS=$'\t' read -r title stem level words; do
            entry "$title" "$stem.html"
        done <"$list"
        printf '</UL>\n</UL>\n</BODY></HTML>\n'
    } | iconv -f UTF-8 -t WINDOWS-1252 >"$work/contenu.hhc"
    {
        printf '[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=catalogue.chm\n'
        printf 'Contents file=contenu.hhc\nDefault topic=index.html\nLanguage=0x40c French (France)\n'
        printf 'Title=Les themes du Grimoval\n\n[FILES]\n'
        (cd "$work" && printf '%s\n' *.html *.jpg)
    } >"$work/catalogue.hhp"
    (cd "$work" && "$CHMCMD" --no-html-scan catalogue.hhp) >"$work/said" 2>&1 </dev/null ||
        { cat "$work/said" >&2; die "chmcmd could not make the catalogue"; }
    [ "$(head -c 4 "$work/catalogue.chm")" = ITSF ] || die "chmcmd made no catalogue"
    mv "$work/catalogue.chm" "$work/made"

    # The compiler writes the hour into two places: in the head, and in a field (0a 00 04 00) before its version.
    local place
    place=$(grep -oba 'HHA Version' "$work/made" | head -n 1 | cut -d : -f 1)
    zero 16
    if [ "$(od -An -tx1 -j $((place - 12)) -N 4 "$work/made" | tr -d ' ')" = 0a000400 ]; then
        zero $((place - 8))
    else
        echo "aide.sh: the hour stays in the catalogue: chmcmd places it differently" >&2
    fi
}

# Four bytes at a place of what was made.
zero() { printf '\0\0\0\0' | dd of="$work/made" bs=1 seek="$1" conv=notrunc status=none; }

[ $# -eq 4 ] || die "usage: aide.sh aide|catalogue ASSETS FILE VIEWS|PICTURES"
work=$(mktemp -d "${TMPDIR:-/tmp}/aide.XXXXXX") || die "no room for a temporary folder"
trap 'rm -rf "$work"' EXIT
command -v rsvg-convert >/dev/null 2>&1 || die "rsvg-convert is missing (package librsvg2-bin)"
CONVERT=$(find_tool convert-im6.q16 /usr/bin/convert magick) || die "ImageMagick is missing (package imagemagick)"
case $1 in
    aide) aide "$2" "$3" "$4" ;;
    catalogue)
        CHMCMD=$(find_tool chmcmd) || die "chmcmd is missing (package fp-utils)"
        catalogue "$2" "$4" ;;
    *) die "unknown word: $1" ;;
esac
mkdir -p "$(dirname "$3")" && cp "$work/made" "$3.part$$" && mv -f "$3.part$$" "$3" || die "cannot write $3"
