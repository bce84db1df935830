#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

/// The properties of an XMP packet, read and written by the library Exempi. Properties are named by
/// the URI of their namespace and a path in it ("Rating", "subject[2]"). One thread at a time for
/// each packet; the library is locked inside.
class XmpPacket
{
public:
    enum class Array { Bag, Seq };

    XmpPacket();
    XmpPacket(XmpPacket &&) noexcept;
    XmpPacket &operator=(XmpPacket &&) noexcept;
    ~XmpPacket();

    /// Nothing when the packet is damaged, or larger or deeper than any that describes a picture.
    static std::optional<XmpPacket> parse(const QByteArray &packet);

    bool isEmpty() const { return namespaces().isEmpty(); }
    bool has(const char *space, const QByteArray &path) const;
    /// Of a simple property; empty when there is none.
    QString text(const char *space, const QByteArray &path) const;
    /// Of a list; of a list of translations all of them.
    QStringList items(const char *space, const QByteArray &path) const;

    // They replace what stood there. What XML does not hold becomes U+FFFD.
    void setText(const char *space, const QByteArray &path, const QString &text);
    void setItems(const char *space, const QByteArray &path, const QStringList &items, Array kind);
    /// The text for every language.
    void setDefaultText(const char *space, const QByteArray &path, const QString &text);

    /// How many items the list has.
    int count(const char *space, const QByteArray &list) const;
    /// Appends an empty structure to a list in order, for setField().
    void appendStructure(const char *space, const QByteArray &list);
    void setField(const char *space, const QByteArray &structure, const char *fieldSpace,
                  const char *field, const QString &text);

    void remove(const char *space, const QByteArray &path);
    void removeNamespace(const QByteArray &space);
    /// Takes those properties of the other packet that this one lacks.
    void add(const XmpPacket &other);

    /// The URIs of the namespaces that have properties here.
    QList<QByteArray> namespaces() const;
    /// About as many bytes as the namespace takes in the packet.
    qsizetype weightOf(const QByteArray &space) const;
    /// As "dc".
    static QString prefixOf(const QByteArray &space);
    /// The prefix for a namespace that the library does not know.
    static void nameNamespace(const char *space, const char *prefix);

    /// UTF-8, as it stands in files.
    QByteArray serialized() const;

private:
    struct Data;
    explicit XmpPacket(std::unique_ptr<Data> properties);
    std::unique_ptr<Data> d;
};
