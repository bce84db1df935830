#include "XmpPacket.h"

#include <QMutex>
#include <QSet>
#include <QXmlStreamReader>

#include <vector>

#include <exempi/xmp.h>

namespace {

/// Phones write some hundred KB, with pictures inside.
constexpr qsizetype kLargestPacket = 4 << 20;
/// The library walks down by recursion.
constexpr size_t kDeepest = 64;
/// It looks at all members of a structure when it adds one: 2,000 take 0.1 s, 10,000 take 3 s.
constexpr int kMostMembers = 2000;
constexpr int kMostElements = 20000;

/// The library has one table of namespaces, and one last error, for all.
class Library
{
public:
    Library()
        : locker(&mutex)
    {
        static const bool isReady = xmp_init();
        Q_UNUSED(isReady)
    }

private:
    static inline QMutex mutex;
    const QMutexLocker<QMutex> locker;
};

/// A text that the library gives.
class Text
{
public:
    Text()
        : text(xmp_string_new(), &xmp_string_free)
    {
    }
    operator XmpStringPtr() const { return text.get(); }
    QByteArray bytes() const
    {
        return {xmp_string_cstr(text.get()), qsizetype(xmp_string_len(text.get()))};
    }

private:
    const std::unique_ptr<std::remove_pointer_t<XmpStringPtr>, decltype(&xmp_string_free)> text;
};

struct Node
{
    QByteArray space;
    QByteArray path; ///< empty: the namespace itself
    QByteArray value;
    uint32_t options = 0;
};

/// Calls visit with each; space: null for all.
template <typename Visit>
void forEachNode(XmpPtr properties, const char *space, uint32_t how, const Visit &visit)
{
    const std::unique_ptr<std::remove_pointer_t<XmpIteratorPtr>, decltype(&xmp_iterator_free)>
        nodes(xmp_iterator_new(properties, space, nullptr, XmpIterOptions(how)),
              &xmp_iterator_free);
    const Text uri;
    const Text path;
    const Text value;
    uint32_t options = 0;
    while (nodes && xmp_iterator_next(nodes.get(), uri, path, value, &options))
        visit(Node{uri.bytes(), path.bytes(), value.bytes(), options});
}

/// The library prints an error for namespaces that it has never seen.
bool isKnown(const char *space)
{
    const Text prefix;
    return xmp_namespace_prefix(space, prefix);
}

bool isXmlCharacter(QChar c)
{
    return c.unicode() >= 0x20 || c == u'\t' || c == u'\n' || c == u'\r';
}

QByteArray xmlText(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair)
            ++i;
        else if (text[i].isSurrogate() || !isXmlCharacter(text[i]) || text[i].unicode() >= 0xFFFE)
            text[i] = QChar::ReplacementCharacter;
    }
    return text.toUtf8();
}

/// Counts what the library would have to hold.
class Size
{
public:
    void open(const QXmlStreamReader &reader)
    {
        constexpr auto *kDescription = u"Description";
        if (!members.empty() && reader.name() != u"li")
            ++*members.back();
        ++elements;
        // All descriptions become one list of properties.
        members.push_back(reader.name() == kDescription ? described : std::make_shared<int>(0));
        *members.back() += int(reader.attributes().size());
    }
    void close() { members.pop_back(); }
    bool isTooLarge() const
    {
        return members.size() > kDeepest || elements > kMostElements ||
               (!members.empty() && *members.back() > kMostMembers);
    }

private:
    const std::shared_ptr<int> described = std::make_shared<int>(0);
    std::vector<std::shared_ptr<int>> members; ///< of each open element, but the items of lists
    int elements = 0;
};

/// Whether the library can be trusted with it: well-formed, no entities, not too large.
bool isSound(const QByteArray &packet)
{
    QXmlStreamReader reader(packet);
    Size size;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::DTD)
            return false;
        if (token == QXmlStreamReader::StartElement)
            size.open(reader);
        if (size.isTooLarge())
            return false;
        if (token == QXmlStreamReader::EndElement)
            size.close();
    }
    return !reader.hasError();
}

/// The property that a path begins with: "dc:title" of "dc:title[1]/?xml:lang".
QByteArray propertyOf(const QByteArray &path)
{
    const auto isEnd = [](char c) { return c == '[' || c == '/'; };
    return {path.constData(), std::find_if(path.begin(), path.end(), isEnd) - path.begin()};
}

/// What stands above the node in the tree must be there.
void put(const Node &node, XmpPtr target)
{
    xmp_set_property(target, node.space.constData(), node.path.constData(), node.value.constData(),
                     node.options & (XMP_PROP_COMPOSITE_MASK | XMP_PROP_VALUE_IS_URI));
}

} // namespace

struct XmpPacket::Data
{
    explicit Data(XmpPtr properties)
        : xmp(properties)
    {
    }
    ~Data()
    {
        const Library library;
        if (xmp)
            xmp_free(xmp);
    }
    Data(const Data &) = delete;
    Data &operator=(const Data &) = delete;

    const XmpPtr xmp;
};

XmpPacket::XmpPacket(std::unique_ptr<Data> properties)
    : d(std::move(properties))
{
}

XmpPacket::XmpPacket()
    : d([] {
        const Library library;
        return std::make_unique<Data>(xmp_new_empty());
    }())
{
}

XmpPacket::XmpPacket(XmpPacket &&) noexcept = default;
XmpPacket &XmpPacket::operator=(XmpPacket &&) noexcept = default;
XmpPacket::~XmpPacket() = default;

std::optional<XmpPacket> XmpPacket::parse(const QByteArray &packet)
{
    QByteArray text = packet;
    while (text.endsWith('\0'))
        text.chop(1);
    if (text.isEmpty() || text.size() > kLargestPacket || !isSound(text))
        return std::nullopt;
    std::unique_ptr<Data> properties;
    {
        const Library library;
        properties = std::make_unique<Data>(xmp_new(text.constData(), size_t(text.size())));
    }
    if (!properties->xmp)
        return std::nullopt;
    return XmpPacket(std::move(properties));
}

bool XmpPacket::has(const char *space, const QByteArray &path) const
{
    const Library library;
    return isKnown(space) && xmp_has_property(d->xmp, space, path.constData());
}

QString XmpPacket::text(const char *space, const QByteArray &path) const
{
    const Library library;
    const Text value;
    uint32_t options = 0;
    const bool isThere =
        isKnown(space) && xmp_get_property(d->xmp, space, path.constData(), value, &options);
    return isThere ? QString::fromUtf8(value.bytes()) : QString();
}

QStringList XmpPacket::items(const char *space, const QByteArray &path) const
{
    const Library library;
    const Text value;
    uint32_t options = 0;
    QStringList items;
    for (int i = 1;
         isKnown(space) && xmp_get_array_item(d->xmp, space, path.constData(), i, value, &options);
         ++i)
        items += QString::fromUtf8(value.bytes());
    return items;
}

void XmpPacket::setText(const char *space, const QByteArray &path, const QString &text)
{
    const Library library;
    xmp_delete_property(d->xmp, space, path.constData());
    xmp_set_property(d->xmp, space, path.constData(), xmlText(text).constData(), 0);
}

void XmpPacket::setItems(const char *space, const QByteArray &path, const QStringList &items,
                         Array kind)
{
    const Library library;
    xmp_delete_property(d->xmp, space, path.constData());
    const uint32_t list =
        XMP_PROP_VALUE_IS_ARRAY | (kind == Array::Seq ? uint32_t(XMP_PROP_ARRAY_IS_ORDERED) : 0U);
    for (const QString &item : items)
        xmp_append_array_item(d->xmp, space, path.constData(), list, xmlText(item).constData(), 0);
}

void XmpPacket::setDefaultText(const char *space, const QByteArray &path, const QString &text)
{
    const Library library;
    xmp_delete_property(d->xmp, space, path.constData());
    xmp_set_localized_text(d->xmp, space, path.constData(), "", "x-default",
                           xmlText(text).constData(), 0);
}

int XmpPacket::count(const char *space, const QByteArray &list) const
{
    const Library library;
    const Text value;
    uint32_t options = 0;
    int items = 0;
    while (xmp_get_array_item(d->xmp, space, list.constData(), items + 1, value, &options))
        ++items;
    return items;
}

void XmpPacket::appendStructure(const char *space, const QByteArray &list)
{
    const Library library;
    xmp_append_array_item(d->xmp, space, list.constData(),
                          XMP_PROP_VALUE_IS_ARRAY | XMP_PROP_ARRAY_IS_ORDERED, nullptr,
                          XMP_PROP_VALUE_IS_STRUCT);
}

void XmpPacket::setField(const char *space, const QByteArray &structure, const char *fieldSpace,
                         const char *field, const QString &text)
{
    const Library library;
    const Text prefix;
    if (!xmp_namespace_prefix(fieldSpace, prefix))
        return;
    const QByteArray path = structure + '/' + prefix.bytes() + field;
    xmp_set_property(d->xmp, space, path.constData(), xmlText(text).constData(), 0);
}

void XmpPacket::remove(const char *space, const QByteArray &path)
{
    const Library library;
    if (isKnown(space))
        xmp_delete_property(d->xmp, space, path.constData());
}

void XmpPacket::removeNamespace(const QByteArray &space)
{
    const Library library;
    if (!isKnown(space.constData()))
        return;
    QList<QByteArray> paths;
    forEachNode(d->xmp, space.constData(), XMP_ITER_JUSTCHILDREN,
                [&paths](const Node &node) { paths += node.path; });
    for (const QByteArray &path : std::as_const(paths))
        xmp_delete_property(d->xmp, space.constData(), path.constData());
}

void XmpPacket::add(const XmpPacket &other)
{
    const Library library;
    QSet<QByteArray> known;
    const auto nameOf = [](const Node &node) { return node.space + propertyOf(node.path); };
    forEachNode(d->xmp, nullptr, XMP_ITER_PROPERTIES,
                [&](const Node &node) { known += nameOf(node); });
    forEachNode(other.d->xmp, nullptr, XMP_ITER_PROPERTIES, [&](const Node &node) {
        if (!node.path.isEmpty() && !known.contains(nameOf(node)))
            put(node, d->xmp);
    });
}

QList<QByteArray> XmpPacket::namespaces() const
{
    const Library library;
    QList<QByteArray> spaces;
    forEachNode(d->xmp, nullptr, XMP_ITER_PROPERTIES, [&spaces](const Node &node) {
        if (!node.path.isEmpty() && !spaces.contains(node.space))
            spaces += node.space;
    });
    return spaces;
}

qsizetype XmpPacket::weightOf(const QByteArray &space) const
{
    const Library library;
    qsizetype bytes = 0;
    forEachNode(d->xmp, space.constData(), XMP_ITER_PROPERTIES,
                [&bytes](const Node &node) { bytes += node.path.size() + node.value.size(); });
    return bytes;
}

QString XmpPacket::prefixOf(const QByteArray &space)
{
    const Library library;
    const Text prefix;
    if (!xmp_namespace_prefix(space.constData(), prefix))
        return QString::fromUtf8(space);
    QByteArray name = prefix.bytes();
    name.chop(name.endsWith(':') ? 1 : 0);
    return QString::fromUtf8(name);
}

void XmpPacket::nameNamespace(const char *space, const char *prefix)
{
    const Library library;
    const Text registered;
    xmp_register_namespace(space, prefix, registered);
}

QByteArray XmpPacket::serialized() const
{
    const Library library;
    const Text packet;
    const bool isWritten =
        xmp_serialize(d->xmp, packet, XMP_SERIAL_READONLYPACKET | XMP_SERIAL_USECOMPACTFORMAT, 0);
    return isWritten ? packet.bytes() : QByteArray();
}
