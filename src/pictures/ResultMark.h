#pragma once

#include "XmpPacket.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// What a merged picture says of how it came about: properties of the XMP namespace kNamespace, by
/// which results are told from photographs. A value.
struct ResultMark
{
    static constexpr char kNamespace[] = "urn:vesk-hdr:result:1.0#";

    QString program; ///< never empty
    QString version;
    QStringList sources; ///< file names without folders, in merge order; may be empty
    QString method;      ///< such as "fusion"
    QString options;     ///< as on the command line; may be empty
};

/// Any thread, one per packet.
namespace result_mark {

/// Marks the packet, and names the program and the step where other programs look for them
/// (xmp:CreatorTool, xmpMM:History).
void put(const ResultMark &mark, XmpPacket &packet);

/// Of a packet as it stands in a file; nothing when it is damaged or has none.
std::optional<ResultMark> in(const QByteArray &xmp);

} // namespace result_mark
