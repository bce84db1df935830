#include "iptc_data.h"

#include "xmp_namespaces.h"

#include <QStringDecoder>
#include <QtEndian>

#include <vector>

namespace {

constexpr QByteArrayView kSignature("Photoshop 3.0\0", 14);
constexpr QByteArrayView kResource("8BIM", 4);
constexpr quint16 kDatasetsResource = 0x0404;

struct Dataset
{
    int record = 0;
    int number = 0;
    QByteArray value;
};

/// Datasets are: 0x1C, record, number, a length of two bytes, or of as many as its low bits say if
/// the highest one is set, and the value. Zero bytes behind the last one fill up to a whole word.
/// Nothing when they are damaged.
std::vector<Dataset> datasetsIn(const QByteArray &bytes)
{
    constexpr char kMark = 0x1C;
    constexpr qsizetype kHeadBytes = 5;
    std::vector<Dataset> datasets;
    qsizetype at = 0;
    while (at < bytes.size() && bytes[at] == kMark) {
        if (at + kHeadBytes > bytes.size())
            return {};
        const int length = qFromBigEndian<quint16>(bytes.constData() + at + 3);
        // Longer values are previews, or damage.
        if (length >= 0x8000 || at + kHeadBytes + length > bytes.size())
            return {};
        datasets.push_back(
            {uchar(bytes[at + 1]), uchar(bytes[at + 2]), bytes.mid(at + kHeadBytes, length)});
        at += kHeadBytes + length;
    }
    const bool isFilledUp = bytes.mid(at).count('\0') == bytes.size() - at;
    return isFilledUp ? datasets : std::vector<Dataset>();
}

QByteArray bytesOf(const Dataset &dataset)
{
    QByteArray head("\x1C\0\0\0\0", 5);
    head[1] = char(dataset.record);
    head[2] = char(dataset.number);
    qToBigEndian(quint16(dataset.value.size()), head.data() + 3);
    return head + dataset.value;
}

/// In what the data say, or what fits.
QString textOf(const QByteArray &value, bool isUtf8)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(value);
    return isUtf8 || !decoder.hasError() ? text : QString::fromLatin1(value);
}

QStringList textsOf(const std::vector<Dataset> &datasets, int number)
{
    constexpr int kCharacterSet = 90;
    bool isUtf8 = false;
    QStringList texts;
    for (const Dataset &dataset : datasets) {
        if (dataset.record == 1 && dataset.number == kCharacterSet)
            isUtf8 = dataset.value == "\x1B%G";
        if (dataset.record == 2 && dataset.number == number)
            texts += textOf(dataset.value, isUtf8);
    }
    return texts;
}

/// Names and values begin at even places.
qsizetype evened(qsizetype bytes)
{
    return bytes + bytes % 2;
}

} // namespace

QByteArray iptc::inPhotoshopBlock(const QByteArray &block)
{
    QByteArray found;
    qsizetype at = 0;
    while (block.mid(at, kResource.size()) == kResource) {
        constexpr qsizetype kNamePlace = 6;
        if (at + kNamePlace >= block.size())
            return found;
        const auto kind = qFromBigEndian<quint16>(block.constData() + at + 4);
        const qsizetype size = at + kNamePlace + evened(1 + uchar(block[at + kNamePlace]));
        if (size + 4 > block.size())
            return found;
        const qint64 length = qFromBigEndian<quint32>(block.constData() + size);
        if (length > block.size() - size - 4)
            return found;
        if (kind == kDatasetsResource && found.isEmpty())
            found = block.mid(size + 4, length);
        at = size + 4 + evened(length);
    }
    return found;
}

QByteArray iptc::photoshopBlock(const QByteArray &datasets)
{
    QByteArray head = kSignature.toByteArray() + kResource.toByteArray() + QByteArray(8, '\0');
    qToBigEndian(kDatasetsResource, head.data() + head.size() - 8);
    qToBigEndian(quint32(datasets.size()), head.data() + head.size() - 4);
    return head + datasets + QByteArray(datasets.size() % 2, '\0');
}

QByteArray iptc::forNewPixels(const QByteArray &bytes)
{
    constexpr int kEnvelope = 1;
    constexpr int kApplication = 2;
    constexpr int kFirstPreview = 200;
    QByteArray kept;
    for (const Dataset &dataset : datasetsIn(bytes)) {
        const bool isText = dataset.record == kEnvelope ||
                            (dataset.record == kApplication && dataset.number < kFirstPreview);
        if (isText)
            kept += bytesOf(dataset);
    }
    return kept;
}

void iptc::addTo(XmpPacket &packet, const QByteArray &bytes)
{
    enum class Form { Text, Translations, Bag, Seq };
    struct Property
    {
        int number;
        const char *space;
        const char *name;
        Form form;
    };
    static constexpr Property kProperties[] = {
        {5, xmp::kDublinCore, "title", Form::Translations},
        {25, xmp::kDublinCore, "subject", Form::Bag},
        {40, xmp::kPhotoshop, "Instructions", Form::Text},
        {80, xmp::kDublinCore, "creator", Form::Seq},
        {85, xmp::kPhotoshop, "AuthorsPosition", Form::Text},
        {90, xmp::kPhotoshop, "City", Form::Text},
        {95, xmp::kPhotoshop, "State", Form::Text},
        {101, xmp::kPhotoshop, "Country", Form::Text},
        {103, xmp::kPhotoshop, "TransmissionReference", Form::Text},
        {105, xmp::kPhotoshop, "Headline", Form::Text},
        {110, xmp::kPhotoshop, "Credit", Form::Text},
        {115, xmp::kPhotoshop, "Source", Form::Text},
        {116, xmp::kDublinCore, "rights", Form::Translations},
        {120, xmp::kDublinCore, "description", Form::Translations},
        {122, xmp::kPhotoshop, "CaptionWriter", Form::Text}};
    const std::vector<Dataset> datasets = datasetsIn(bytes);
    for (const Property &property : kProperties) {
        const QStringList texts = textsOf(datasets, property.number);
        if (texts.isEmpty() || packet.has(property.space, property.name))
            continue;
        if (property.form == Form::Text)
            packet.setText(property.space, property.name, texts.first());
        else if (property.form == Form::Translations)
            packet.setDefaultText(property.space, property.name, texts.first());
        else
            packet.setItems(property.space, property.name, texts,
                            property.form == Form::Bag ? XmpPacket::Array::Bag
                                                       : XmpPacket::Array::Seq);
    }
}
