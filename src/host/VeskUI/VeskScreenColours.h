#pragma once

#include "veskui_export.h"

#include <QColorSpace>
#include <QImage>
#include <QObject>

#include <functional>

/// How the colours of documents become those of the screen, for all canvases of the process. The
/// host libraries know no profiles: the editor says how it is done; until it does, pixels are shown
/// as they are stored. GUI thread, but what it hands out runs on any.
///
/// No tool calls this.
class VESKUI_EXPORT VeskScreenColours : public QObject
{
    Q_OBJECT

public:
    /// Changes the colours of a Format_ARGB32_Premultiplied picture in place. Any thread, several
    /// at once. Empty where nothing is to be changed.
    using Conversion = std::function<void(QImage &picture)>;
    /// Makes the conversion for pictures in that space, which may be invalid (not known).
    using Maker = std::function<Conversion(const QColorSpace &from)>;

    /// The one instance, kept for the life of the process.
    static VeskScreenColours &getInstance();

    /// toScreen: for what is shown. toCommon: for what is counted, to the one space in which
    /// pictures are compared whatever the screen. Both may be empty. Sends changed.
    void setMakers(Maker toScreen, Maker toCommon);

    Conversion toScreen(const QColorSpace &from) const;
    Conversion toCommon(const QColorSpace &from) const;

Q_SIGNALS:
    /// What is shown must be converted anew.
    void changed();

private:
    VeskScreenColours() = default;

    Maker makeToScreen;
    Maker makeToCommon;
};
