#include "gain_map_terms.h"

#include "byte_order.h"
#include "xmp_namespaces.h"

#include <algorithm>
#include <cmath>

namespace {

const QByteArray kSignature("urn:iso:std:iso:ts:21496:-1\0", 28);
constexpr uchar kSeveralChannels = 0x80;
constexpr uchar kInBaseColours = 0x40;
constexpr double kLargestStops = 64.0;
constexpr int kMostPictures = 100;

constexpr auto *kGain = xmp::kGainMap;

/// Whole numbers, big-endian, appended.
class Writer
{
public:
    explicit Writer(const QByteArray &start)
        : bytes(start)
    {
    }

    template <typename Number>
    void put(Number number)
    {
        bytes += byte_order::written(number, true);
    }

    /// As a fraction.
    void putFraction(double number)
    {
        constexpr qint32 kDenominator = 1 << 20;
        put(qint32(std::lround(number * kDenominator)));
        put(quint32(kDenominator));
    }

    QByteArray bytes;
};

/// The same read, from bytes that may end too early; from then on all is 0.
class Reader
{
public:
    Reader(const QByteArray &source, qsizetype begin)
        : bytes(source)
        , place(begin)
    {
    }

    template <typename Number>
    Number next()
    {
        if (bytes.size() - place < qsizetype(sizeof(Number))) {
            isWhole = false;
            return 0;
        }
        const auto number = byte_order::read<Number>(bytes.constData() + place, true);
        place += qsizetype(sizeof(Number));
        return number;
    }

    template <typename Numerator>
    double nextFraction()
    {
        const double numerator = next<Numerator>();
        const double denominator = next<quint32>();
        isWhole = isWhole && denominator > 0.0;
        return denominator > 0.0 ? numerator / denominator : 0.0;
    }

    bool isWhole = true;

private:
    const QByteArray &bytes;
    qsizetype place;
};

bool isSound(const GainMapTerms::Channel &channel)
{
    return std::abs(channel.least) <= kLargestStops && std::abs(channel.most) <= kLargestStops &&
           channel.least <= channel.most && channel.gamma > 0.0 && std::isfinite(channel.gamma) &&
           std::isfinite(channel.baseOffset) && std::isfinite(channel.alternateOffset);
}

bool isSound(const GainMapTerms &terms)
{
    return std::all_of(terms.channels.begin(), terms.channels.end(),
                       [](const GainMapTerms::Channel &channel) { return isSound(channel); }) &&
           std::abs(terms.baseHeadroom) <= kLargestStops &&
           std::abs(terms.alternateHeadroom) <= kLargestStops &&
           terms.baseHeadroom != terms.alternateHeadroom;
}

void putVersion(Writer &writer)
{
    writer.put(quint16(0)); // the least that a reader must know
    writer.put(quint16(0)); // the writer's
}

GainMapTerms::Channel nextChannel(Reader &reader)
{
    GainMapTerms::Channel channel;
    channel.least = reader.nextFraction<qint32>();
    channel.most = reader.nextFraction<qint32>();
    channel.gamma = reader.nextFraction<quint32>();
    channel.baseOffset = reader.nextFraction<qint32>();
    channel.alternateOffset = reader.nextFraction<qint32>();
    return channel;
}

/// A property that is one number for all channels or a list of three; usual where it is missing.
/// Nothing when it is no number.
std::optional<std::array<double, 3>> numbersOf(const XmpPacket &packet, const char *name,
                                               double usual)
{
    std::array<double, 3> numbers = {usual, usual, usual};
    if (!packet.has(kGain, name))
        return numbers;
    const QStringList items = packet.items(kGain, name);
    const QString one = packet.text(kGain, name);
    for (qsizetype i = 0; i < 3; ++i) {
        bool isNumber = false;
        numbers[size_t(i)] =
            (items.isEmpty() ? one : items.value(items.size() == 1 ? 0 : i)).toDouble(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    return numbers;
}

struct Property
{
    const char *name;
    double GainMapTerms::Channel::*member;
    double usual;
};

constexpr Property kProperties[] = {
    {"GainMapMin", &GainMapTerms::Channel::least, 0.0},
    {"GainMapMax", &GainMapTerms::Channel::most, 1.0},
    {"Gamma", &GainMapTerms::Channel::gamma, 1.0},
    {"OffsetSDR", &GainMapTerms::Channel::baseOffset, 1.0 / 64.0},
    {"OffsetHDR", &GainMapTerms::Channel::alternateOffset, 1.0 / 64.0}};

QString textOf(double number)
{
    return QString::number(number, 'g', 9);
}

QByteArray itemOf(int number)
{
    return "Directory[" + QByteArray::number(number) + "]/Container:Item";
}

} // namespace

QByteArray gain_map_terms::isoVersion()
{
    Writer writer(kSignature);
    putVersion(writer);
    return writer.bytes;
}

QByteArray gain_map_terms::iso(const GainMapTerms &terms)
{
    Writer writer(kSignature);
    putVersion(writer);
    writer.put(uchar(kSeveralChannels | kInBaseColours));
    writer.putFraction(terms.baseHeadroom);
    writer.putFraction(terms.alternateHeadroom);
    for (const GainMapTerms::Channel &channel : terms.channels) {
        writer.putFraction(channel.least);
        writer.putFraction(channel.most);
        writer.putFraction(channel.gamma);
        writer.putFraction(channel.baseOffset);
        writer.putFraction(channel.alternateOffset);
    }
    return writer.bytes;
}

bool gain_map_terms::isIso(const QByteArray &segment)
{
    return segment.startsWith(kSignature);
}

std::optional<GainMapTerms> gain_map_terms::fromIso(const QByteArray &segment)
{
    Reader reader(segment, kSignature.size());
    const auto leastVersion = reader.next<quint16>();
    reader.next<quint16>();
    const auto flags = reader.next<uchar>();
    GainMapTerms terms;
    terms.baseHeadroom = reader.nextFraction<quint32>();
    terms.alternateHeadroom = reader.nextFraction<quint32>();
    terms.channels.fill(nextChannel(reader));
    for (size_t c = 1; c < 3 && (flags & kSeveralChannels) != 0; ++c)
        terms.channels[c] = nextChannel(reader);
    return reader.isWhole && leastVersion == 0 && isSound(terms) ? std::optional(terms)
                                                                 : std::nullopt;
}

void gain_map_terms::putDirectory(qsizetype mapBytes, XmpPacket &packet)
{
    XmpPacket::nameNamespace(kGain, "hdrgm");
    XmpPacket::nameNamespace(xmp::kContainer, "Container");
    XmpPacket::nameNamespace(xmp::kContainerItem, "Item");
    packet.removeNamespace(kGain);
    packet.removeNamespace(xmp::kContainer);
    packet.setText(kGain, "Version", QStringLiteral("1.0"));
    const auto add = [&packet](int number, const QString &semantic) {
        packet.appendStructure(xmp::kContainer, "Directory");
        packet.setField(xmp::kContainer, itemOf(number), xmp::kContainerItem, "Semantic", semantic);
        packet.setField(xmp::kContainer, itemOf(number), xmp::kContainerItem, "Mime",
                        QStringLiteral("image/jpeg"));
    };
    add(1, QStringLiteral("Primary"));
    add(2, QStringLiteral("GainMap"));
    packet.setField(xmp::kContainer, itemOf(2), xmp::kContainerItem, "Length",
                    QString::number(mapBytes));
}

void gain_map_terms::putTerms(const GainMapTerms &terms, XmpPacket &packet)
{
    XmpPacket::nameNamespace(kGain, "hdrgm");
    packet.setText(kGain, "Version", QStringLiteral("1.0"));
    const std::array<GainMapTerms::Channel, 3> &channels = terms.channels;
    for (const Property &property : kProperties) {
        QStringList texts;
        for (const GainMapTerms::Channel &channel : channels)
            texts += textOf(channel.*property.member);
        if (texts.count(texts.first()) == texts.size())
            packet.setText(kGain, property.name, texts.first());
        else
            packet.setItems(kGain, property.name, texts, XmpPacket::Array::Seq);
    }
    packet.setText(kGain, "HDRCapacityMin", textOf(terms.baseHeadroom));
    packet.setText(kGain, "HDRCapacityMax", textOf(terms.alternateHeadroom));
    packet.setText(kGain, "BaseRenditionIsHDR", QStringLiteral("False"));
}

gain_map_terms::Directory gain_map_terms::directoryIn(const XmpPacket &packet)
{
    XmpPacket::nameNamespace(xmp::kContainer, "Container");
    XmpPacket::nameNamespace(xmp::kContainerItem, "Item");
    Directory directory;
    // The first item is the base itself.
    for (int number = 2; number <= kMostPictures; ++number) {
        const auto text = [&](const char *field) {
            return packet.text(xmp::kContainer, itemOf(number) + "/Item:" + field);
        };
        const QString semantic = text("Semantic");
        if (semantic.isEmpty())
            break;
        if (semantic == QLatin1String("GainMap"))
            directory.gainMap = int(directory.lengths.size());
        directory.lengths += text("Length").toLongLong();
    }
    return directory;
}

bool gain_map_terms::tellsOfGainMap(const XmpPacket &packet)
{
    return packet.has(kGain, "Version");
}

std::optional<GainMapTerms> gain_map_terms::fromXmp(const XmpPacket &packet)
{
    // Where the base is the bright one, or the range is missing, nothing is told of a map.
    if (!packet.has(kGain, "GainMapMax") ||
        packet.text(kGain, "BaseRenditionIsHDR")
                .compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return std::nullopt;
    GainMapTerms terms;
    for (const Property &property : kProperties) {
        const auto numbers = numbersOf(packet, property.name, property.usual);
        if (!numbers)
            return std::nullopt;
        for (size_t c = 0; c < 3; ++c)
            terms.channels[c].*property.member = (*numbers)[c];
    }
    const auto least = numbersOf(packet, "HDRCapacityMin", 0.0);
    const auto most = numbersOf(packet, "HDRCapacityMax", terms.channels[0].most);
    if (!least || !most)
        return std::nullopt;
    terms.baseHeadroom = least->front();
    terms.alternateHeadroom = most->front();
    return isSound(terms) ? std::optional(terms) : std::nullopt;
}
