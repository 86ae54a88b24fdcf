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
# Four-colour JPEGs as print programs write them, of four patches (red, green, blue, white), each
# 16 pixels wide: ImageMagick writes YCCK under Adobe's marker, Pillow plain CMYK under it, both
# with the inverted values of Adobe's programs.
convert -size 16x48 xc:red xc:lime xc:blue xc:white +append patches.png
convert patches.png -colorspace CMYK ink-ycck.JPG
/usr/bin/python3 -c "import sys; from PIL import Image; \
Image.open('patches.png').convert('CMYK').save(sys.argv[1], quality=95)" ink-cmyk.JPG
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

rm -f base.png gray.png mono.png patches.png
