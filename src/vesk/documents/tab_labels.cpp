#include "tab_labels.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace {

constexpr int kShortestCut = 3; // less is not worth an ellipsis

int commonStart(const QString &one, const QString &other)
{
    const auto end = one.size() < other.size() ? one.size() : other.size();
    return int(std::mismatch(one.begin(), one.begin() + end, other.begin()).first - one.begin());
}

/// The largest position up to length that divides no number and no word.
int boundaryBefore(const QString &name, int length)
{
    while (length > 0 && name.at(length - 1).isDigit())
        --length;
    if (length == name.size() || name.at(length).isDigit())
        return length;
    while (length > 0 && name.at(length - 1).isLetterOrNumber())
        --length;
    return length;
}

/// How many letters of each name stand in another one, too.
QHash<QString, int> sharedStarts(QStringList names)
{
    std::sort(names.begin(), names.end()); // the most similar ones are neighbours now
    names.erase(std::unique(names.begin(), names.end()), names.end());
    QHash<QString, int> shared;
    for (int i = 1; i < names.size(); ++i) {
        const int length = commonStart(names.at(i - 1), names.at(i));
        shared[names.at(i - 1)] = std::max(shared.value(names.at(i - 1)), length);
        shared[names.at(i)] = length;
    }
    return shared;
}

/// A suffix alone would not tell anything.
QString withoutStart(const QString &name, int shared)
{
    const int cut =
        boundaryBefore(name, std::min(shared, int(QFileInfo(name).completeBaseName().size())));
    return cut < kShortestCut || cut == name.size() ? name : QChar(0x2026) + name.mid(cut);
}

} // namespace

QStringList tab_labels::shortened(const QStringList &names)
{
    QStringList bases;
    QHash<QString, int> uses;
    for (const QString &name : names) {
        bases.append(QFileInfo(name).completeBaseName());
        ++uses[bases.constLast()];
    }
    for (int i = 0; i < names.size(); ++i) {
        if (uses.value(QFileInfo(names.at(i)).completeBaseName()) > 1)
            bases[i] = names.at(i);
    }
    const QHash<QString, int> shared = sharedStarts(bases);
    for (QString &base : bases)
        base = withoutStart(base, shared.value(base));
    return bases;
}
