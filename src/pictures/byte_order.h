#pragma once

#include <QByteArray>
#include <QtEndian>

/// Numbers in files, whose byte order the file tells. Any thread.
namespace byte_order {

/// bytes: as many as the number has.
template <typename Number>
Number read(const char *bytes, bool isBigEndian)
{
    return isBigEndian ? qFromBigEndian<Number>(bytes) : qFromLittleEndian<Number>(bytes);
}

template <typename Number>
QByteArray written(Number number, bool isBigEndian)
{
    QByteArray bytes(sizeof number, '\0');
    if (isBigEndian)
        qToBigEndian(number, bytes.data());
    else
        qToLittleEndian(number, bytes.data());
    return bytes;
}

} // namespace byte_order
