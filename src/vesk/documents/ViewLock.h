#pragma once

#include <QObject>
#include <QPointer>

class VeskCanvas;

/// Lets two canvases show the same part of their documents: zoom and place of the one follow the
/// other. Documents of different sizes are laid over one another, corner on corner. GUI thread.
class ViewLock : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool isLocked() const { return isOn; }
    /// Locking lets the second follow the first at once.
    void setLocked(bool isLocked);
    /// Both borrowed; null for none. While locked, one that comes new follows the one that was
    /// linked before, or else the second the first.
    void link(VeskCanvas *first, VeskCanvas *second);

private:
    void follow(const VeskCanvas *moved);
    bool isLinked(const VeskCanvas *canvas) const;

    QPointer<VeskCanvas> canvases[2];
    bool isOn = true;
    bool isFollowing = false;
};
