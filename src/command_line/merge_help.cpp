#include "merge_command.h"

QString command_line::mergeHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr merge [options] PICTURE... -o OUT

Merges two or more pictures of one scene, taken at different exposures, into one
well-exposed picture. All must have the same size. They are read upright, whatever
their names end in, ordered by path, aligned, and fused: each part of the picture
comes mostly from the shots that show it best, and what moved from one shot alone.
The fusion works at the depth of the pictures, and in the colours of the first one.
A picture may be "-": standard input.

Options:
  -o, --output OUT  File to write: PNG, JPEG, TIFF, or for the radiance OpenEXR,
                    Radiance or TIFF, by its suffix (.png .jpg .jpeg .tif .tiff .exr
                    .hdr); "-" is standard output
  --format NAME     "png", "jpeg", "tiff", "exr", "hdr", "avif" or "jxl", whatever the
                    suffix
  --depth BITS      8 or 16 bits per channel; otherwise as the first picture has,
                    and 8 for JPEG and the mean. Of the radiance OpenEXR files have 16
                    or 32, TIFF files 32
  --raw-space NAME  Convert camera raw files to "srgb", which is the default, "adobe",
                    "prophoto" or "p3"
  --output-space NAME
                    Convert the result to one of these; otherwise it has the colours of
                    the first picture
  --tiff-compression HOW
                    "lzw", which is the default, "deflate" or "none"
  --hdr             Write a fused picture that bright screens show beyond white: JPEG
                    with a gain map, which all others show as before, or AVIF or
                    JPEG XL (.avif .jxl), of 10 bits (PQ, Rec. 2020)
  --peak STOPS      With --hdr, no brighter than so far above white, 0.5 to 8 (4)
  --effort N        Make PNG and deflated TIFF files smaller, 1 (fast) to 9 (1)
  --method HOW      "fusion", which is the default; "radiance": the light of the scene,
                    linear, which is the default for OpenEXR and Radiance files; or
                    "mean": the weighted mean of the "Merge to HDR" tool, to the bit
  --align HOW       "perspective" for hand-held shots, which is fusion's default;
                    "shift" by whole pixels, which is the mean's, onto the first
                    picture; "none" for shots from a tripod
  --no-align        Short for --align none
  --reference PICTURE
                    Align to this one, and keep its metadata; otherwise to the one
                    best exposed (fusion) or to the first (mean)
  --ghosts HOW      What moved comes from one shot: "auto", which is the default,
                    chooses it for each thing; a PICTURE is that shot; "off" blends
  --ghost-mask FILE Write what moved, white on black
  --take SHOT=MASK  What is light in MASK, a picture of the pictures' size that lies on
                    the reference, comes from SHOT, a PICTURE or its place from 1 on,
                    whatever moved there; may be given again, later ones count more
  --paint STROKES   The same by strokes of a brush, joined by "+": SHOT:RADIUS:X,Y and
                    on by DX,DY, all in pixels of the reference, SHOT a place, or 0 to
                    erase; or SHOT@X,Y: the thing that moved there comes from SHOT
  --exposure N      Brighten the result by so many stops, -4 to 4 (0)
  --contrast N      Harden (up to 1) or soften (down to -1) it (0)
  --highlights N    Darken what is light (down to -1) or brighten it (up to 1), with
                    the detail in it (0)
  --shadows N       Brighten what is dark (up to 1) or darken it (down to -1), with
                    the detail in it (0)
  --black-point N, --white-point N
                    What becomes black, 0 to 0.4 (0), and white, 0.6 to 1 (1), as
                    shares of the range
  --saturation N    Colours from none (0) to vivid (3) (1)
  --exposure-weight N, --contrast-weight N, --saturation-weight N
                    How much a middle exposure (1), local contrast (1) and vivid
                    colours (0) count in the fusion, 0 to 4
  --metadata-from PICTURE
                    Keep this picture's metadata instead of the reference's
  --no-metadata     Keep none; only the result's own mark is written, without the
                    names of the pictures
  --keep-order      Keep the order given; the first picture is the one that
                    "shift" aligns to
  --crop            Cut to the area that every picture covers after aligning
  --device NAME     Merge on that OpenCL device, see 'veskhdr devices', or on the
                    "processor"; the pixels are the same. The method is the mean then
  --quality N       JPEG quality, 1 to 100 (95), also of AVIF and JPEG XL; from 90 on at full colour resolution
  --max-megapixels N
                    Refuse larger pictures before taking memory for them (512)
  --force           Replace OUT if it exists, but never one of the pictures
  --json            Print what was done as one JSON object
  --verbose         Print what was done as plain lines: times and shifts
  --help            Show this text
  --                What follows are pictures, even if it begins with "-"

Exit codes:
   0  the picture is written
  64  wrong options or arguments, one picture only, unknown suffix of OUT
  65  a file is no picture, damaged, too large, or of another size than the first
  66  a picture is missing, is not a file, or must not be read
  69  the OpenCL device is not there, or cannot merge these pictures
  71  not enough memory
  73  OUT exists already, or cannot be made
  74  OUT or standard output could not be written to its end, e.g. the disk is full
Unless the exit code is 0, nothing is written and what stood in OUT's place stays; only
when standard output failed, as the message says, OUT is there.)");
}
