#pragma once

#include "ExifTags.h"

/// Lays the entries out as an EXIF block: a header, the directories and, behind them, the values
/// that are longer than four bytes, all around the maker note at its old place. For one block.
class ExifBlockWriter
{
public:
    /// tags: not empty; must outlive the writer.
    explicit ExifBlockWriter(const ExifTags &tags);
    QByteArray write();
    /// Where the directory begins in the block; 0 when there is none. After write().
    quint32 placeOf(ExifTags::Directory directory) const { return places[size_t(directory)]; }

private:
    using Directory = ExifTags::Directory;

    ExifTags::Entries sortedEntries(Directory directory) const;
    void addDirectoryBelow(ExifTags::Entries &entries, quint16 tag, Directory below) const;
    quint32 reserve(qint64 length);
    void put(quint32 place, const QByteArray &bytes);
    void placeDirectories();
    void writeDirectory(Directory directory);
    QByteArray fieldOf(Directory directory, const ExifTags::Entry &entry);

    const ExifTags &tags;
    const ExifTags::Entry *fixedNote = nullptr;
    std::array<quint32, ExifTags::kDirectoryCount> places = {};
    qint64 next = 0;
    QByteArray bytes;
};
