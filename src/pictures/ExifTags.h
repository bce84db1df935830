#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>
#include <vector>

class QIODevice;

/// The entries of an EXIF block or of a TIFF file, byte for byte as the camera wrote them. (libexif
/// reads 64 KB at most and does not tell where the maker note stood; libtiff rounds fractions.)
/// A value: any thread, reentrant.
class ExifTags
{
public:
    /// IFD0, and the directories "Exif", "GPS" and "Interoperability" below it.
    enum class Directory { Picture, Exposure, Place, Interoperability };
    static constexpr size_t kDirectoryCount = 4;

    enum Tag : quint16 {
        InteroperabilityIndex = 0x0001,
        Model = 0x0110,
        Make = 0x010F,
        Orientation = 0x0112,
        DateTime = 0x0132,
        ExposureTime = 0x829A,
        FNumber = 0x829D,
        ExposureDirectory = 0x8769,
        PlaceDirectory = 0x8825,
        Sensitivity = 0x8827,
        ExifVersion = 0x9000,
        DateTimeOriginal = 0x9003,
        ExposureBias = 0x9204,
        SubjectArea = 0x9214,
        MakerNote = 0x927C,
        FocalLength = 0x920A,
        SubSecondsOriginal = 0x9291,
        ColourSpace = 0xA001,
        PixelWidth = 0xA002,
        PixelHeight = 0xA003,
        InteroperabilityDirectory = 0xA005,
        SubjectLocation = 0xA214,
        ExposureMode = 0xA402,
        BodySerialNumber = 0xA431,
        LensModel = 0xA434,
    };

    /// The types that TIFF files have for values, by their numbers.
    enum Type : quint16 {
        Byte = 1,
        Text = 2,
        Short = 3,
        Long = 4,
        Ratio = 5,
        Undefined = 7,
        SignedLong = 9,
        SignedRatio = 10,
        DirectoryOffset = 13,
    };

    struct Entry
    {
        quint16 tag = 0;
        quint16 type = 0;
        quint32 count = 0; ///< of numbers or characters
        QByteArray value;  ///< in the byte order of the block
        quint32 place = 0; ///< where the value stood, from the block's first byte; 0: not told
    };
    using Entries = std::vector<Entry>;

    ExifTags() = default;
    explicit ExifTags(bool bigEndian)
        : isBigEndian(bigEndian)
    {
    }

    /// Reads a TIFF file or an EXIF block from its first byte on. Entries that are damaged, or that
    /// tell how a TIFF file stores its pixels, are passed over. device: open and seekable.
    static ExifTags read(QIODevice &device);
    /// The same from memory; "Exif" and two zero bytes in front are allowed.
    static ExifTags parse(const QByteArray &block);

    bool isEmpty() const;
    bool hasBigEndianNumbers() const { return isBigEndian; }
    const Entries &entries(Directory directory) const { return directories[size_t(directory)]; }
    /// Null when there is none. Valid until the next change.
    const Entry *find(Directory directory, quint16 tag) const;

    /// The text up to its first zero byte, without spaces around it; empty when there is none.
    QString text(Directory directory, quint16 tag) const;
    /// Of a whole number without a sign; nothing when there is none.
    std::optional<quint32> number(Directory directory, quint16 tag) const;
    /// Of a fraction, with a sign or without; nothing when there is none or it divides by zero.
    std::optional<double> fraction(Directory directory, quint16 tag) const;

    // They replace what stood there.
    void setText(Directory directory, quint16 tag, const QByteArray &text);
    void setBytes(Directory directory, quint16 tag, const QByteArray &bytes);
    void setShort(Directory directory, quint16 tag, quint16 value);
    void setLong(Directory directory, quint16 tag, quint32 value);
    void setFraction(Directory directory, quint16 tag, quint32 numerator, quint32 denominator);
    void setSignedFraction(Directory directory, quint16 tag, qint32 numerator, qint32 denominator);

    void remove(Directory directory, quint16 tag);
    void clear(Directory directory) { directories[size_t(directory)].clear(); }

    /// The EXIF block, without "Exif" in front. The maker note stands where it stood, as it may
    /// count places from the block's first byte, unless its place is 0. Empty when nothing is
    /// there.
    QByteArray block() const;
    /// Lets the next block have the maker note at any place.
    void forgetPlaceOfMakerNote();

private:
    friend class ExifTagsReader;
    void set(Directory directory, Entry entry);
    QByteArray bytesOf(quint32 value) const;
    QByteArray bytesOf(quint16 value) const;

    std::array<Entries, kDirectoryCount> directories;
    bool isBigEndian = false;
};
