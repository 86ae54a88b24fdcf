#!/usr/bin/env bash
# Makes the test pictures: one drawing written in several formats, bit depths and compressions
# with ImageMagick's convert and netpbm. Every picture is 64 x 48 pixels.
# Usage: make-picture-fixtures.sh OUTPUT-FOLDER
set -euo pipefail
out="$1"
mkdir -p "$out"
cd "$out"
rm -f ./*.[A-Z]* 2>/dev/null || true

# The drawing: a white field, a red disc, a blue bar and a black diagonal.
convert -size 64x48 xc:white -fill red -draw 'circle 20,24 20,10' \
    -fill blue -draw 'rectangle 40,6 58,42' -stroke black -draw 'line 0,0 63,47' base.png
convert base.png -colorspace Gray gray.png
convert base.png -monochrome mono.png

convert base.png -quality 90 jpeg-baseline.JPG
convert base.png -interlace JPEG jpeg-progressive.JPG
convert gray.png jpeg-gray.JPG
convert base.png -type TrueColor bmp-24.BMP
convert base.png -type TrueColorAlpha bmp-32.BMP
convert base.png -colors 16 -type Palette BMP3:bmp-4.BMP
convert base.png -colors 200 -type Palette -compress RLE BMP3:bmp-8-rle.BMP
convert mono.png -type Bilevel bmp-1.BMP
convert base.png png-24.PNG
convert base.png -colors 16 PNG8:png-palette.PNG
convert base.png -depth 16 PNG64:png-16.PNG
convert mono.png -type Bilevel png-mono.PNG
convert base.png -compress LZW tiff-lzw.TIF
convert base.png -compress Zip tiff-zip.TIFF
convert mono.png -compress Group4 tiff-g4.TIF
convert base.png base.png -compress LZW TIFF:tiff-two-pages.MPT
convert base.png -depth 16 tiff-16.TIF
convert base.png pcx-24.PCX
convert base.png -colors 256 -type Palette pcx-8.PCX
convert mono.png -type Bilevel pcx-1.PCX
convert base.png base.png dcx-two.DCX
convert base.png -compress None tga-plain.TGA
convert base.png -compress RLE tga-rle.TGA
convert base.png -colors 64 xpm.XPM
convert mono.png -compress None PBM:pbm-ascii.PBM
convert mono.png PBM:pbm-raw.PBM
convert base.png -resize 32x32! ico.ICO
convert base.png psd.PSD
convert base.png SUN:ras-24.RAS
convert base.png -colors 16 -type Palette SUN:ras-8.RAS
convert mono.png JBIG:jbig.JBG
convert base.png -resize 192x128! PCD:pcd.PCD
convert base.png ppm:- | ppmtoilbm > iff-24.IFF 2>/dev/null
convert mono.png pbm:- | pbmtogem > gem.IMG 2>/dev/null

# JPEGs of inks, in cmyk/: a red, a green, a blue and a white patch, each 32 x 24 pixels.
# ImageMagick writes YCCK with Adobe's marker; python3-pil writes CMYK with the marker and the
# inks inverted; a CMYK file without the marker holds the inks themselves; the last one has a
# sampling of its components that TurboJPEG does not take.
mkdir -p cmyk
rm -f cmyk/*
convert -size 64x48 xc:white -fill red -draw 'rectangle 0,0 31,23' \
    -fill lime -draw 'rectangle 32,0 63,23' -fill blue -draw 'rectangle 0,24 31,47' patches.png
convert patches.png -colorspace CMYK -quality 95 cmyk/ycck.JPG
convert patches.png -colorspace CMYK -quality 95 -sampling-factor 2x2,1x1,1x1,1x1 \
    cmyk/ycck-subsampled.JPG
/usr/bin/python3 - <<'PYTHON'
import io
from PIL import Image, ImageChops

inks = Image.open("patches.png").convert("CMYK")
inks.save("cmyk/adobe-cmyk.JPG", quality=95)
# PIL stores CMYK inverted: given inverted inks, it stores the inks. Its Adobe marker goes.
stream = io.BytesIO()
ImageChops.invert(inks).save(stream, "JPEG", quality=95)
data = stream.getvalue()
plain, at = bytearray(data[:2]), 2
while True:
    marker, length = data[at + 1], data[at + 2] << 8 | data[at + 3]
    if marker != 0xEE:
        plain += data[at : at + 2 + length]
    if marker == 0xDA:
        plain += data[at + 2 + length :]
        break
    at += 2 + length
open("cmyk/plain-cmyk.JPG", "wb").write(plain)
PYTHON

rm -f base.png gray.png mono.png patches.png
