#pragma once

#include "XmpPacket.h"

#include <QByteArray>

/// IPTC data ("IPTC-NAA Information Interchange Model Version 4"): datasets with title, keywords,
/// copyright and the like, one after the other. Any thread, reentrant.
namespace iptc {

/// Datasets that fit into the one segment that JPEG files have for them here.
constexpr qsizetype kMostInJpeg = 65533 - 14 - 12 - 1;

/// The datasets in a file's "Photoshop 3.0" block, behind its signature (the blocks of several
/// segments joined); empty when there are none, or the block is damaged.
QByteArray inPhotoshopBlock(const QByteArray &block);

/// The block that holds just these, signature included.
QByteArray photoshopBlock(const QByteArray &datasets);

/// The datasets that hold for a picture made from the camera's: without previews and without what
/// tells how the old pixels lay. Empty when they are damaged.
QByteArray forNewPixels(const QByteArray &datasets);

/// Adds what the packet lacks of title, caption, keywords, creator, copyright and place, for files
/// that hold XMP alone (the mapping of the Metadata Working Group's guidelines, 2.0, appendix).
void addTo(XmpPacket &packet, const QByteArray &datasets);

} // namespace iptc
