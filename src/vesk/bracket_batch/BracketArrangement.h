#pragma once

#include <Shot.h>

#include <QHash>
#include <QList>
#include <QStringList>

#include <vector>

/// Which shots of a folder are merged with which: what was found, and what the user makes of it. A
/// bracket has two shots or more; a shot that is in none is loose. No shot gets lost. A value.
class BracketArrangement
{
public:
    using Shots = std::vector<Shot>;

    /// Where a shot is: in a bracket, or among the loose ones, which come behind the last bracket.
    struct Place
    {
        int bracket = 0;
        int shot = 0;
    };

    BracketArrangement() = default;
    BracketArrangement(const QList<Shots> &brackets, const Shots &loose);

    int bracketCount() const { return int(brackets.size()); }
    /// Of a bracket, or the loose ones.
    const Shots &shotsOf(int bracket) const;

    /// Whether it takes shots of two places, or two loose ones.
    bool canJoin(const QList<Place> &places) const;
    /// Makes one bracket of these shots, in the order in which they were taken. It stands where the
    /// first of them was; brackets that keep less than two shots dissolve. Returns where it is.
    int join(const QList<Place> &places);

    bool canSplit(const Place &place) const;
    /// That shot and those behind it become a bracket of their own, or loose.
    void split(const Place &place);

    /// As somebody has arranged the folder before, by paths. Shots that are gone are left out,
    /// those that are mentioned nowhere stay where they are.
    void arrangeAs(const QList<QStringList> &groups, const QStringList &loosePaths);

private:
    bool isLoose(const Place &place) const { return place.bracket == bracketCount(); }
    void takeOutAll(const QStringList &paths, QHash<QString, Shot> &taken);
    void dissolveSmallOnes();

    QList<Shots> brackets;
    Shots loose;
};
