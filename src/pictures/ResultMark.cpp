#include "ResultMark.h"

#include "xmp_namespaces.h"

namespace {

/// One more step in the picture's history.
void addToHistory(const ResultMark &mark, XmpPacket &packet)
{
    const QByteArray entry =
        "History[" + QByteArray::number(packet.count(xmp::kMediaManagement, "History") + 1) + "]";
    const auto set = [&](const char *field, const QString &text) {
        packet.setField(xmp::kMediaManagement, entry, xmp::kEvent, field, text);
    };
    packet.appendStructure(xmp::kMediaManagement, "History");
    set("action", QStringLiteral("produced"));
    set("softwareAgent", mark.program + u' ' + mark.version);
    set("parameters", QStringLiteral("merged %1 (%2)")
                          .arg(mark.sources.isEmpty() ? QStringLiteral("pictures")
                                                      : mark.sources.join(QStringLiteral(", ")),
                               mark.method));
}

} // namespace

void result_mark::put(const ResultMark &mark, XmpPacket &packet)
{
    constexpr auto *kSpace = ResultMark::kNamespace;
    XmpPacket::nameNamespace(kSpace, "vesk");
    packet.removeNamespace(kSpace);
    packet.setText(kSpace, "Program", mark.program);
    packet.setText(kSpace, "Version", mark.version);
    packet.setText(kSpace, "Method", mark.method);
    if (!mark.options.isEmpty())
        packet.setText(kSpace, "Options", mark.options);
    if (!mark.sources.isEmpty())
        packet.setItems(kSpace, "Sources", mark.sources, XmpPacket::Array::Seq);
    packet.setText(xmp::kBasic, "CreatorTool", mark.program + u' ' + mark.version);
    addToHistory(mark, packet);
}

std::optional<ResultMark> result_mark::in(const QByteArray &xmp)
{
    constexpr auto *kSpace = ResultMark::kNamespace;
    // Most pictures are none: reading folders stays quick.
    if (!xmp.contains(kSpace))
        return std::nullopt;
    const std::optional<XmpPacket> packet = XmpPacket::parse(xmp);
    if (!packet || !packet->has(kSpace, "Program"))
        return std::nullopt;
    return ResultMark{packet->text(kSpace, "Program"), packet->text(kSpace, "Version"),
                      packet->items(kSpace, "Sources"), packet->text(kSpace, "Method"),
                      packet->text(kSpace, "Options")};
}
