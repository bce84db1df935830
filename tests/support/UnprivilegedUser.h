#pragma once

#include <QStringList>

/// Nothing is forbidden to root, so tests of permissions step down: as long as this lives, the
/// process and those that it starts are an ordinary user's. Does nothing when they are already.
class UnprivilegedUser
{
public:
    /// owned: files and folders that become the user's.
    explicit UnprivilegedUser(const QStringList &owned);
    ~UnprivilegedUser();
    UnprivilegedUser(const UnprivilegedUser &) = delete;
    UnprivilegedUser &operator=(const UnprivilegedUser &) = delete;

    /// False for root who cannot step down here, and when the path lies below a folder that is not
    /// for ordinary users.
    bool canReach(const QString &path) const;

private:
    bool hasSteppedDown = false;
};
