#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Le Grimoval: makes the picture files of the program from their SVG sources.
#
#   tools/images.sh SOURCES DEST GRIMSCENE [KIND]
#
# SOURCES is the folder assets/images, DEST the folder to fill (made when missing), GRIMSCENE the program
# that puts the things of a scene in their places (tools/scene).
# KIND is one of the names below; without it every kind is made.
#   faces    faces/NAME.svg   -> NAME.tga       32 bits with alpha, uncompressed, 256x256 (ovals 300x150)
#   themes   themes/STEM.svg  -> STEM.JPG       1200x900
#   defaut   defaut/IMGnn.svg -> IMGnn.BMP      800x600, 24 bits
#   fonds    fonds/NAME.svg   -> fond_NAME.jpg  three times the size of the drawing, quality 92
#   logo     logo.svg         -> logo.png       400x400
#   livre    livre.svg        -> livre.png      256x256
#   icone    icone.svg        -> icone-N.png    N x N for 64 128 256 512, from icone-petite.svg for 16 24 32 48
#
# A drawing may include those of its folder commun/, which are made into nothing by themselves.
#
# The same sources give the same files, byte for byte: no date, no name goes into them.
# Ends with 0 only when every file was made; a file appears in DEST only when it is whole.

LC_ALL=C
MAGICK_THREAD_LIMIT=1
OMP_NUM_THREADS=1
export LC_ALL MAGICK_THREAD_LIMIT OMP_NUM_THREADS

die() { echo "images.sh: $*" >&2; exit 255; }   # 255 also stops xargs at once

find_convert() {
    local c
    for c in convert-im6.q16 /usr/bin/convert magick; do
        command -v "$c" >/dev/null 2>&1 && { echo "$c"; return 0; }
    done
    return 1
}

# one KIND SOURCE.svg DEST: makes one file. Called back by xargs.
one() {
    local kind=$1 src=$2 dest=$3 name out w h png tmp want got
    name=$(basename "$src" .svg)
    work=$(mktemp -d "${TMPDIR:-/tmp}/images.XXXXXX") || die "no room for a temporary folder"
    trap 'rm -rf "$work"' EXIT
    png=$work/drawn.png

    case $kind in
        faces)  case $name in *_ovale) w=300 h=150 ;; *) w=256 h=256 ;; esac; out=$name.tga ;;
        themes) w=1200 h=900; out=$name.JPG ;;
        defaut) w=800 h=600; out=$name.BMP ;;
        fonds)  w='' h=''; out=fond_$name.jpg ;;
        logo)   w=400 h=400; out=logo.png ;;
        livre)  w=256 h=256; out=livre.png ;;
        icone*) w=${kind#icone-} h=$w; out=$kind.png ;;
    esac

    case $kind in
        themes | defaut)
            # a scene: what it shares with the others is looked for beside it
            XDG_RUNTIME_DIR=$work "$SCENE" "$src" "$work/scene.svg" && cp "${src%/*/*}/decor.svg" "$work" ||
                die "$SCENE could not make the scene of $src"
            src=$work/scene.svg ;;
    esac
    if [ -n "$w" ]; then
        # drawn to that size whatever its own shape: so look first that the shape is right
        got=$(sed -n 's/.*viewBox="0 0 \([0-9]*\) \([0-9]*\)".*/\1 \2/p' "$src" | head -n 1)
        [ -n "$got" ] || die "$src has no viewBox \"0 0 WIDTH HEIGHT\""
        [ $((${got% *} * h)) -eq $((${got#* } * w)) ] || die "$src is $got: not the proportions of $w x $h"
        rsvg-convert -w "$w" -h "$h" -f png -o "$png" "$src"
    else
        rsvg-convert -z 3 -f png -o "$png" "$src"
    fi || die "rsvg-convert could not draw $src"
    [ -s "$png" ] || die "rsvg-convert drew nothing from $src"
    if [ -n "$w" ]; then
        got=$("$CONVERT" "$png" -format '%wx%h' info:) || die "$CONVERT cannot read the drawing of $src"
        [ "$got" = "${w}x$h" ] || die "$src is drawn $got instead of ${w}x$h"
    fi

    tmp=$work/$out
    case $kind in
        faces)
            "$CONVERT" "$png" -strip -depth 8 -type TrueColorMatte -orient TopLeft -compress None "TGA:$tmp" ;;
        themes|fonds)
            quality=90
            [ "$kind" = themes ] || quality=92
            "$CONVERT" "$png" -background '#0b1440' -alpha remove -alpha off -colorspace sRGB -depth 8 \
                -strip -sampling-factor 1x1 -quality $quality "JPEG:$tmp" ;;
        defaut)
            "$CONVERT" "$png" -background '#0b1440' -alpha remove -alpha off -colorspace sRGB -depth 8 \
                -strip -type TrueColor -compress None "BMP3:$tmp" ;;
        *)
            "$CONVERT" "$png" -strip -depth 8 -define png:exclude-chunks=date,time,tEXt,zTXt,iTXt \
                -define png:color-type=6 -define png:compression-level=9 "PNG:$tmp" ;;
    esac || die "$CONVERT could not make $out from $src"
    [ -s "$tmp" ] || die "$CONVERT made an empty $out from $src"

    # Lossless kinds must read back as the very pixels drawn; the JPEG must read back at all.
    case $kind in
        themes|fonds)
            want=$("$CONVERT" "$png" -format '%wx%h' info:)
            got=$("$CONVERT" "JPEG:$tmp" -format '%wx%h' info:) || die "$out does not read back"
            [ "$got" = "$want" ] || die "$out reads back as $got" ;;
        faces)
            # type 2 (true colour, uncompressed), 32 bits, 8 bits of alpha, first line at the top
            got=$(od -An -tu1 -N18 "$tmp" | tr -s ' \n' '  ')
            set -- $got
            [ "$1 $2 $3" = "0 0 2" ] && [ "${17} ${18}" = "32 40" ] ||
                die "$out has an unexpected TGA header:$got"
            want=$("$CONVERT" "$png" -depth 8 -type TrueColorMatte RGBA:- | cksum)
            got=$("$CONVERT" "TGA:$tmp" -depth 8 RGBA:- | cksum)
            [ "$want" = "$got" ] || die "$out does not read back as it was drawn" ;;
        defaut)
            want=$("$CONVERT" "$png" -background '#0b1440' -alpha remove -alpha off -depth 8 RGB:- | cksum)
            got=$("$CONVERT" "BMP:$tmp" -depth 8 RGB:- | cksum)
            [ "$want" = "$got" ] || die "$out does not read back as it was drawn" ;;
        *)
            want=$("$CONVERT" "$png" -depth 8 RGBA:- | cksum)
            got=$("$CONVERT" "PNG:$tmp" -depth 8 RGBA:- | cksum)
            [ "$want" = "$got" ] || die "$out does not read back as it was drawn" ;;
    esac

    mv -f "$tmp" "$dest/$out.part$$" && chmod 644 "$dest/$out.part$$" && mv -f "$dest/$out.part$$" "$dest/$out" ||
        die "cannot write $dest/$out"
}

if [ "$1" = --one ]; then
    shift
    one "$@"
    exit 0
fi

[ $# -eq 3 ] || [ $# -eq 4 ] ||
    die "usage: images.sh SOURCES DEST GRIMSCENE [faces|themes|defaut|fonds|logo|livre|icone]"
sources=$1 dest=$2 SCENE=$3
all="faces themes defaut fonds logo livre icone"
kinds=${4:-$all}
case $kinds in
    faces|themes|defaut|fonds|logo|livre|icone|"$all") ;;
    *) die "unknown kind: $kinds" ;;
esac

[ -d "$sources" ] || die "no such folder of sources: $sources"
command -v rsvg-convert >/dev/null 2>&1 || die "rsvg-convert is missing (package librsvg2-bin)"
CONVERT=$(find_convert) || die "ImageMagick is missing (package imagemagick)"
[ -x "$SCENE" ] || die "no such program: $SCENE"
export CONVERT SCENE
mkdir -p "$dest" && [ -w "$dest" ] || die "cannot write into $dest"

list=$(mktemp "${TMPDIR:-/tmp}/images.XXXXXX") || die "no room for a temporary file"
trap 'rm -f "$list"' EXIT
for kind in $kinds; do
    case $kind in
        logo|livre) set -- "$sources/$kind.svg" ;;
        icone)
            for size in 16 24 32 48 64 128 256 512; do
                drawing=icone
                [ $size -ge 64 ] || drawing=icone-petite
                [ -f "$sources/$drawing.svg" ] || die "no source for $kind: $sources/$drawing.svg"
                printf '%s\0%s\0%s\0' "icone-$size" "$sources/$drawing.svg" "$dest" >> "$list"
            done
            continue ;;
        *)          set -- "$sources/$kind"/*.svg ;;
    esac
    [ -f "$1" ] || die "no source for $kind: $1"
    for src; do
        printf '%s\0%s\0%s\0' "$kind" "$src" "$dest" >> "$list"
    done
done

jobs=$(nproc 2>/dev/null) || jobs=2
xargs -0 -n 3 -P "$jobs" bash "$0" --one < "$list" || die "stopped: not every picture was made"
