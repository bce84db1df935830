#include "gain_map.h"

#include "FileParts.h"
#include "gain_map_terms.h"
#include "metadata_reader.h"
#include "multi_picture.h"
#include "picture_header.h"

#include <QBuffer>

namespace {

using multi_picture::Place;

/// Far more than gain maps have.
constexpr qint64 kLargestMap = 64 << 20;

/// What the base says.
struct Base
{
    bool tells = false; ///< that there is a gain map
    QList<Place> places;
};

/// The pictures stand at the end of the file, the last one last.
QList<Place> placesOf(const gain_map_terms::Directory &directory, qint64 fileBytes)
{
    qint64 end = fileBytes;
    for (qsizetype i = directory.lengths.size() - 1; i >= 0; --i) {
        const qint64 length = directory.lengths[i];
        if (length <= 0 || length > end)
            return {};
        end -= length;
        if (i == directory.gainMap)
            return {{end, length}};
    }
    return {};
}

void readXmp(QIODevice &file, Base &base)
{
    const std::optional<XmpPacket> packet = XmpPacket::parse(metadata::xmpIn(file));
    if (!packet)
        return;
    const gain_map_terms::Directory directory = gain_map_terms::directoryIn(*packet);
    base.tells |= gain_map_terms::tellsOfGainMap(*packet) || directory.gainMap >= 0;
    base.places += placesOf(directory, file.size());
}

Base baseOf(QIODevice &file)
{
    Base base;
    FileParts parts(file);
    while (parts.kind() == FileParts::Kind::Jpeg && parts.next()) {
        if (parts.name() != "\xE2")
            continue;
        const qint64 begin = parts.begins();
        const QByteArray segment = parts.bytes();
        base.tells |= gain_map_terms::isIso(segment);
        if (multi_picture::isSegment(segment))
            base.places +=
                multi_picture::laterPictures(segment, begin + multi_picture::kSignatureBytes);
    }
    readXmp(file, base);
    return base;
}

/// The file that lies there; empty when it lies outside or is none of JPEG.
QByteArray fileAt(QIODevice &file, const Place &place)
{
    const qint64 size = file.size();
    if (place.offset <= 0 || place.offset >= size || place.length <= 0 ||
        place.length > size - place.offset || place.length > kLargestMap ||
        !file.seek(place.offset))
        return {};
    const QByteArray bytes = file.read(place.length);
    return bytes.startsWith("\xFF\xD8") ? bytes : QByteArray();
}

std::optional<GainMapTerms> xmpTermsIn(QIODevice &map, bool &tells)
{
    const std::optional<XmpPacket> packet = XmpPacket::parse(metadata::xmpIn(map));
    if (!packet || !gain_map_terms::tellsOfGainMap(*packet))
        return std::nullopt;
    tells = true;
    return gain_map_terms::fromXmp(*packet);
}

/// Nothing when that is no gain map.
std::optional<gain_map::Found> mapIn(QByteArray bytes)
{
    QBuffer map(&bytes);
    map.open(QIODevice::ReadOnly);
    bool tells = false;
    std::optional<GainMapTerms> terms;
    FileParts parts(map);
    while (parts.next()) {
        const QByteArray segment = parts.name() == "\xE2" ? parts.bytes() : QByteArray();
        if (!gain_map_terms::isIso(segment))
            continue;
        tells = true;
        terms = gain_map_terms::fromIso(segment);
    }
    gain_map::Found found;
    found.isIso = terms.has_value();
    if (!terms)
        terms = xmpTermsIn(map, tells);
    if (!tells)
        return std::nullopt;
    const std::optional<PictureHeader> header = picture::headerOf(map);
    if (header)
        found.size = header->size;
    if (terms)
        found.terms = *terms;
    if (!terms || found.size.isEmpty())
        found.problem = QStringLiteral("damaged, or of a kind that is not known");
    return found;
}

} // namespace

std::optional<gain_map::Found> gain_map::read(QIODevice &file)
{
    const Base base = baseOf(file);
    std::optional<Found> damaged;
    for (const Place &place : base.places) {
        const QByteArray bytes = fileAt(file, place);
        std::optional<Found> found = bytes.isEmpty() ? std::nullopt : mapIn(bytes);
        if (found && found->problem.isEmpty())
            return found;
        if (found)
            damaged = found;
    }
    if (!damaged && base.tells) {
        damaged.emplace();
        damaged->problem = QStringLiteral("told of, but not in the file");
    }
    return damaged;
}
