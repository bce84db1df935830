#include "xmp_metadata.h"

#include "exif_metadata.h"
#include "iptc_data.h"
#include "xmp_namespaces.h"

#include <algorithm>

namespace {

constexpr qsizetype kLargestJpegPacket = 65502;

struct Property
{
    const char *space;
    const char *name;
};

/// They describe the file that the packet came from, not its picture.
constexpr Property kOfTheOldFile[] = {{xmp::kBasic, "Thumbnails"},
                                      {xmp::kDublinCore, "format"},
                                      {xmp::kExif, "CompressedBitsPerPixel"},
                                      {xmp::kExif, "ComponentsConfiguration"},
                                      {xmp::kExif, "MakerNote"},
                                      {xmp::kExif, "NativeDigest"},
                                      {xmp::kExif, "SubjectArea"},
                                      {xmp::kExif, "SubjectLocation"},
                                      {xmp::kMediaManagement, "InstanceID"},
                                      {xmp::kNote, "HasExtendedXMP"},
                                      {xmp::kPhotoshop, "DocumentAncestors"},
                                      {xmp::kPhotoshop, "ICCProfile"},
                                      {xmp::kPhotoshop, "LegacyIPTCDigest"},
                                      {xmp::kPhotoshop, "SidecarForExtension"},
                                      {xmp::kPhotoshop, "TextLayers"},
                                      {xmp::kTiff, "BitsPerSample"},
                                      {xmp::kTiff, "Compression"},
                                      {xmp::kTiff, "NativeDigest"},
                                      {xmp::kTiff, "PhotometricInterpretation"},
                                      {xmp::kTiff, "PlanarConfiguration"},
                                      {xmp::kTiff, "PrimaryChromaticities"},
                                      {xmp::kTiff, "ReferenceBlackWhite"},
                                      {xmp::kTiff, "ResolutionUnit"},
                                      {xmp::kTiff, "SamplesPerPixel"},
                                      {xmp::kTiff, "TransferFunction"},
                                      {xmp::kTiff, "WhitePoint"},
                                      {xmp::kTiff, "XResolution"},
                                      {xmp::kTiff, "YCbCrCoefficients"},
                                      {xmp::kTiff, "YCbCrPositioning"},
                                      {xmp::kTiff, "YCbCrSubSampling"},
                                      {xmp::kTiff, "YResolution"}};

/// Settings of raw developers, which would be applied to the finished picture; and what phones
/// append to a picture: gain maps, depth, sound, film.
constexpr const char *kForeignToTheResult[] = {
    "http://ns.adobe.com/camera-raw-settings/1.0/", "http://darktable.sf.net/",
    "http://ns.adobe.com/hdr-gain-map/1.0/",        "http://ns.apple.com/HDRGainMap/1.0/",
    "http://ns.apple.com/pixeldatainfo/1.0/",       "http://ns.google.com/photos/1.0/audio/",
    "http://ns.google.com/photos/1.0/camera/",      "http://ns.google.com/photos/1.0/container/",
    "http://ns.google.com/photos/1.0/depthmap/",    "http://ns.google.com/photos/1.0/image/",
    "http://ns.google.com/photos/dd/1.0/device/"};

/// Where faces and other things are in the picture.
constexpr const char *kPlaces[] = {"http://www.metadataworkinggroup.com/schemas/regions/",
                                   "http://ns.microsoft.com/photo/1.2/"};

void dropWhatNoLongerHolds(XmpPacket &packet)
{
    for (const Property &property : kOfTheOldFile)
        packet.remove(property.space, property.name);
    for (const char *space : kForeignToTheResult)
        packet.removeNamespace(space);
}

/// Whether the stored pixels of the old file lay as those of the new one do. camera: the packet
/// before it was changed.
bool liesAsBefore(const Metadata &metadata, const XmpPacket &camera, const QImage &picture)
{
    const auto number = [&](ExifTags::Directory directory, ExifTags::Tag tag, const char *space,
                            const char *name) {
        const std::optional<quint32> own = metadata.exif.number(directory, tag);
        return own ? int(*own) : camera.text(space, name).toInt();
    };
    using Directory = ExifTags::Directory;
    const int orientation =
        number(Directory::Picture, ExifTags::Orientation, xmp::kTiff, "Orientation");
    return orientation <= 1 &&
           number(Directory::Exposure, ExifTags::PixelWidth, xmp::kTiff, "ImageWidth") ==
               picture.width() &&
           number(Directory::Exposure, ExifTags::PixelHeight, xmp::kTiff, "ImageLength") ==
               picture.height();
}

void dropPlaces(XmpPacket &packet, QStringList &leftOut)
{
    const QList<QByteArray> spaces = packet.namespaces();
    for (const char *space : kPlaces) {
        if (!spaces.contains(space))
            continue;
        packet.removeNamespace(space);
        leftOut += QStringLiteral("the marked regions (XMP %1) are left out, as they belong to "
                                  "another size or orientation")
                       .arg(XmpPacket::prefixOf(space));
    }
}

/// The panorama's data tell the size of the picture.
void dropOtherPanorama(XmpPacket &packet, QSize size)
{
    const QSize told(packet.text(xmp::kPanorama, "CroppedAreaImageWidthPixels").toInt(),
                     packet.text(xmp::kPanorama, "CroppedAreaImageHeightPixels").toInt());
    if (told != size)
        packet.removeNamespace(xmp::kPanorama);
}

void correct(XmpPacket &packet, const Property &property, const QString &value)
{
    if (packet.has(property.space, property.name))
        packet.setText(property.space, property.name, value);
}

/// What is there is made true. The colour space stays when the pixels do not tell theirs.
void correctAll(XmpPacket &packet, const QImage &picture)
{
    const QString width = QString::number(picture.width());
    const QString height = QString::number(picture.height());
    correct(packet, {xmp::kTiff, "Orientation"}, QStringLiteral("1"));
    correct(packet, {xmp::kTiff, "ImageWidth"}, width);
    correct(packet, {xmp::kTiff, "ImageLength"}, height);
    correct(packet, {xmp::kExif, "PixelXDimension"}, width);
    correct(packet, {xmp::kExif, "PixelYDimension"}, height);
    correct(packet, {xmp::kPhotoshop, "ColorMode"}, QStringLiteral("3"));
    const QColorSpace colours = picture.colorSpace();
    if (colours.isValid())
        correct(packet, {xmp::kExif, "ColorSpace"}, QString::number(exif::numberOf(colours)));
}

/// The result is a document of its own, made from the camera's.
void beginDocument(XmpPacket &packet)
{
    const QString parent = packet.text(xmp::kMediaManagement, "DocumentID");
    if (parent.isEmpty())
        return;
    if (!packet.has(xmp::kMediaManagement, "OriginalDocumentID"))
        packet.setText(xmp::kMediaManagement, "OriginalDocumentID", parent);
    packet.remove(xmp::kMediaManagement, "DocumentID");
}

/// Leaves out the largest parts, but not what people wrote as long as there is something else.
void fitInto(XmpPacket &packet, qsizetype largest, QStringList &leftOut)
{
    const QList<QByteArray> last{ResultMark::kNamespace, xmp::kBasic, xmp::kRights,
                                 xmp::kDublinCore};
    QStringList dropped;
    while (packet.serialized().size() > largest) {
        QList<QByteArray> spaces = packet.namespaces();
        const auto weight = [&](const QByteArray &space) {
            return std::make_pair(!last.contains(space), packet.weightOf(space));
        };
        const auto heaviest =
            std::max_element(spaces.begin(), spaces.end(), [&](const auto &one, const auto &other) {
                return weight(one) < weight(other);
            });
        if (heaviest == spaces.end())
            break;
        dropped += XmpPacket::prefixOf(*heaviest);
        packet.removeNamespace(*heaviest);
    }
    if (!dropped.isEmpty())
        leftOut += QStringLiteral("parts of the XMP data (%1) are left out, as they are too large "
                                  "for this kind of file")
                       .arg(dropped.join(QStringLiteral(", ")));
}

/// An empty packet when there is none, or it is damaged.
XmpPacket packetOf(const Metadata &metadata, QStringList &leftOut)
{
    std::optional<XmpPacket> packet = XmpPacket::parse(metadata.xmp);
    if (!packet && !metadata.xmp.isEmpty())
        leftOut += QStringLiteral("the XMP data are left out, as they are damaged or too large");
    return packet ? std::move(*packet) : XmpPacket();
}

} // namespace

xmp::Adapted xmp::forUprightPicture(const Metadata &metadata, const QImage &picture,
                                    PictureFormat format, const ResultMark *mark,
                                    qsizetype roomBytes)
{
    Adapted adapted;
    XmpPacket packet = packetOf(metadata, adapted.leftOut);
    if (!liesAsBefore(metadata, packet, picture))
        dropPlaces(packet, adapted.leftOut);
    dropOtherPanorama(packet, picture.size());
    dropWhatNoLongerHolds(packet);
    correctAll(packet, picture);
    const bool holdsDatasets = format == PictureFormat::Jpeg || format == PictureFormat::Tiff;
    if (!holdsDatasets)
        iptc::addTo(packet, metadata.iptc);
    if (mark) {
        beginDocument(packet);
        result_mark::put(*mark, packet);
    }
    if (format == PictureFormat::Jpeg)
        fitInto(packet, kLargestJpegPacket - roomBytes, adapted.leftOut);
    if (!packet.isEmpty())
        adapted.packet = packet.serialized();
    return adapted;
}
