#pragma once

#include "OutputFile.h"

#include <QJsonObject>
#include <QList>
#include <QString>

/// A page that shows each bracket of a batch: its shots, its result, how well they were aligned and
/// how long that took. One file that needs no other: small pictures stand within it. One thread;
/// uses all cores for the small pictures.
class ContactSheet
{
public:
    /// A picture of no bracket, and why.
    struct LeftOut
    {
        QString path;
        QString reason;
    };

    QString title;
    QList<QJsonObject> brackets; ///< as the report tells them, in the order to show
    QList<LeftOut> leftOut;

    static QString pathIn(const QString &folder);

    /// Replaces what is there. The reason when it could not be written, or nothing.
    QString write(const QString &path, OutputFile::TemporaryNameObserver observer = {}) const;

private:
    QByteArray head() const;
    QByteArray foot() const;
};
