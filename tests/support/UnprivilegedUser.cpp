#include "UnprivilegedUser.h"

#include <QFile>

#include <unistd.h>

namespace {

constexpr uid_t kNobody = 65534;
constexpr uid_t kRoot = 0;
constexpr gid_t kSameGroup = gid_t(-1);

/// The saved identity stays root's, which is the way back; a program that is started loses it.
bool become(uid_t user)
{
#ifdef __linux__
    return ::setresuid(user, user, kRoot) == 0;
#else
    Q_UNUSED(user)
    return false;
#endif
}

} // namespace

UnprivilegedUser::UnprivilegedUser(const QStringList &owned)
{
    if (::geteuid() != kRoot)
        return;
    for (const QString &path : owned) {
        if (::chown(QFile::encodeName(path).constData(), kNobody, kSameGroup) != 0)
            return;
    }
    hasSteppedDown = become(kNobody);
}

UnprivilegedUser::~UnprivilegedUser()
{
    if (hasSteppedDown && !become(kRoot))
        qFatal("cannot become root again");
}

bool UnprivilegedUser::canReach(const QString &path) const
{
    return ::geteuid() != kRoot && ::access(QFile::encodeName(path).constData(), F_OK) == 0;
}
