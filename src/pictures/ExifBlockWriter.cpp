#include "ExifBlockWriter.h"

#include "byte_order.h"

#include <algorithm>

namespace {

constexpr int kHeaderBytes = 8;
constexpr int kEntryBytes = 12;
constexpr int kInlineBytes = 4;
constexpr std::array kDirectories = {ExifTags::Directory::Picture, ExifTags::Directory::Exposure,
                                     ExifTags::Directory::Place,
                                     ExifTags::Directory::Interoperability};

} // namespace

ExifBlockWriter::ExifBlockWriter(const ExifTags &exifTags)
    : tags(exifTags)
    , next(kHeaderBytes)
{
    const ExifTags::Entry *note = tags.find(Directory::Exposure, ExifTags::MakerNote);
    if (note && note->place >= kHeaderBytes && note->value.size() > kInlineBytes)
        fixedNote = note;
}

QByteArray ExifBlockWriter::write()
{
    if (fixedNote)
        put(fixedNote->place, fixedNote->value);
    placeDirectories();
    constexpr quint16 kTiff = 42;
    const bool isBigEndian = tags.hasBigEndianNumbers();
    put(0, (isBigEndian ? "MM" : "II") + byte_order::written(kTiff, isBigEndian) +
               byte_order::written(places[0], isBigEndian));
    for (const Directory directory : kDirectories) {
        if (places[size_t(directory)] != 0)
            writeDirectory(directory);
    }
    return bytes;
}

/// By tag, as readers expect, and with the entries that tell where the directories below stand.
ExifTags::Entries ExifBlockWriter::sortedEntries(Directory directory) const
{
    ExifTags::Entries entries = tags.entries(directory);
    if (directory == Directory::Picture) {
        addDirectoryBelow(entries, ExifTags::ExposureDirectory, Directory::Exposure);
        addDirectoryBelow(entries, ExifTags::PlaceDirectory, Directory::Place);
    } else if (directory == Directory::Exposure) {
        addDirectoryBelow(entries, ExifTags::InteroperabilityDirectory,
                          Directory::Interoperability);
    }
    std::sort(entries.begin(), entries.end(),
              [](const ExifTags::Entry &one, const ExifTags::Entry &other) {
                  return one.tag < other.tag;
              });
    return entries;
}

void ExifBlockWriter::addDirectoryBelow(ExifTags::Entries &entries, quint16 tag,
                                        Directory below) const
{
    const bool hasMoreBelow =
        below == Directory::Exposure && !tags.entries(Directory::Interoperability).empty();
    if (!tags.entries(below).empty() || hasMoreBelow)
        entries.push_back({tag, ExifTags::Long, 1,
                           byte_order::written(places[size_t(below)], tags.hasBigEndianNumbers()),
                           0});
}

/// The next even place with so much room that the maker note leaves.
quint32 ExifBlockWriter::reserve(qint64 length)
{
    qint64 place = next;
    const qint64 noteBegin = fixedNote ? fixedNote->place : 0;
    const qint64 noteEnd = fixedNote ? noteBegin + fixedNote->value.size() : 0;
    if (place < noteEnd && place + length > noteBegin)
        place = noteEnd + noteEnd % 2;
    next = place + length + length % 2;
    return static_cast<quint32>(place);
}

void ExifBlockWriter::put(quint32 place, const QByteArray &content)
{
    const qsizetype end = qsizetype(place) + content.size();
    if (bytes.size() < end)
        bytes.append(end - bytes.size(), '\0');
    std::copy(content.begin(), content.end(), bytes.begin() + place);
}

void ExifBlockWriter::placeDirectories()
{
    constexpr qint64 kCountAndLink = 6;
    for (const Directory directory : kDirectories) {
        const size_t count = sortedEntries(directory).size();
        if (count > 0 || directory == Directory::Picture)
            places[size_t(directory)] = reserve(kCountAndLink + qint64(count) * kEntryBytes);
    }
}

QByteArray ExifBlockWriter::fieldOf(Directory directory, const ExifTags::Entry &entry)
{
    const bool isBigEndian = tags.hasBigEndianNumbers();
    const QByteArray head = byte_order::written(entry.tag, isBigEndian) +
                            byte_order::written(entry.type, isBigEndian) +
                            byte_order::written(entry.count, isBigEndian);
    if (entry.value.size() <= kInlineBytes)
        return head + entry.value.leftJustified(kInlineBytes, '\0');
    const bool isFixed =
        fixedNote && directory == Directory::Exposure && entry.tag == ExifTags::MakerNote;
    const quint32 place = isFixed ? fixedNote->place : reserve(entry.value.size());
    if (!isFixed)
        put(place, entry.value);
    return head + byte_order::written(place, isBigEndian);
}

void ExifBlockWriter::writeDirectory(Directory directory)
{
    const ExifTags::Entries entries = sortedEntries(directory);
    QByteArray table =
        byte_order::written(static_cast<quint16>(entries.size()), tags.hasBigEndianNumbers());
    for (const ExifTags::Entry &entry : entries)
        table += fieldOf(directory, entry);
    constexpr int kLinkBytes = 4; // no directory follows
    put(places[size_t(directory)], table + QByteArray(kLinkBytes, '\0'));
}
