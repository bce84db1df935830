#pragma once

#include "ExposurePattern.h"
#include "bracket_finder.h"
#include "shot_order.h"

#include <QStringList>

#include <vector>

/// Cuts the shots of one camera into brackets. One thread at a time.
class RunCutter
{
public:
    /// The shots begin to end - 1 of the sequence.
    struct Part
    {
        size_t begin;
        size_t end;
    };

    /// All must outlive it.
    RunCutter(const brackets::Sequence &sequence, const BracketRules &rules,
              const brackets::SceneTest &isSameScene);

    void cut();

    /// The brackets, in order.
    const std::vector<Part> &parts() const { return found; }
    QStringList warningsOf(const Part &part) const;
    /// Why a shot stands in none of the parts.
    QString reasonFor(size_t shot) const;

private:
    /// What lies between a shot and the next.
    enum class Link { Joined, Pause, OtherLens, OtherScene };

    Link linkAfter(size_t shot) const;
    size_t cutRun(size_t begin, size_t end);
    std::vector<Part> bestParts(size_t begin, size_t end) const;
    int isolation(size_t begin, size_t end, double longestPause) const;
    ExposurePattern patternOf(const Part &part) const;
    bool isDoubtful(const Part &part, size_t shot) const;
    bool showsOtherScene(size_t shot);
    bool hasOtherScene(const Part &part);
    double longestUsualPause() const;
    bool isNear(size_t shot) const;
    QString reasonForSingle(size_t shot) const;

    const brackets::Sequence &sequence;
    const BracketRules &rules;
    const brackets::SceneTest &isSameScene;
    std::vector<double> pauses; ///< [i]: after shot i
    std::vector<Link> links;    ///< [i]: after shot i
    std::vector<std::optional<brackets::Scene>> answers;
    std::vector<Part> found;
};
