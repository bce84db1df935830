#pragma once

#include <QByteArray>
#include <QIODevice>

/// Walks over the parts that a JPEG, PNG or WebP file consists of: segments in front of the first
/// scan, or chunks. Files of other kinds have none. One thread at a time.
class FileParts
{
public:
    enum class Kind { Jpeg, Png, WebP, Other };

    /// file: open and seekable, borrowed.
    explicit FileParts(QIODevice &file);
    Kind kind() const { return kindOfFile; }

    /// Goes to the next part, at first to the first one; false when there is none.
    bool next();

    /// The marker's second byte ("\xE1"), or the chunk's name ("eXIf").
    const QByteArray &name() const { return partName; }
    /// Where its bytes begin in the file.
    qint64 begins() const { return begin; }
    /// How many bytes the file says that it has, without head and checksum.
    qint64 length() const { return partLength; }
    /// Its first bytes, or as many as there are.
    QByteArray start(qint64 count) const;
    /// All its bytes; empty when the file lacks some, or when they are more than any metadata have.
    QByteArray bytes() const;

private:
    bool nextSegment();
    bool nextChunk();
    bool enter(const QByteArray &name, qint64 length, qint64 bytesBehind);

    QIODevice &file;
    Kind kindOfFile = Kind::Other;
    QByteArray partName;
    qint64 begin = 0;
    qint64 partLength = 0;
    qint64 nextHead = 0;
};
