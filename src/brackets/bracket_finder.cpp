#include "bracket_finder.h"

#include "RunCutter.h"
#include "natural_order.h"
#include "shot_order.h"

#include <algorithm>

namespace {

/// Puts the brackets and the shots left over of one sequence to the others.
void append(const brackets::Sequence &sequence, const RunCutter &cutter, Grouping &grouping)
{
    std::vector<bool> isTaken(sequence.shots.size());
    for (const RunCutter::Part &part : cutter.parts()) {
        Bracket bracket;
        bracket.warnings = cutter.warningsOf(part);
        for (size_t i = part.begin; i < part.end; ++i) {
            bracket.shots.push_back(sequence.shots[i]);
            isTaken[i] = true;
        }
        grouping.brackets.push_back(std::move(bracket));
    }
    for (size_t i = 0; i < isTaken.size(); ++i) {
        if (!isTaken[i])
            grouping.leftOver.push_back({sequence.shots[i], cutter.reasonFor(i)});
    }
}

bool isBefore(const Shot &one, const Shot &other)
{
    return one.takenAt != other.takenAt ? one.takenAt < other.takenAt
                                        : brackets::isBeforeNaturally(one.path, other.path);
}

} // namespace

Grouping brackets::find(std::vector<Shot> shots, const BracketRules &rules,
                        const SceneTest &isSameScene)
{
    Grouping grouping;
    const std::vector<Sequence> sequences = inSequences(std::move(shots));
    for (const Sequence &sequence : sequences) {
        RunCutter cutter(sequence, rules, isSameScene);
        cutter.cut();
        append(sequence, cutter, grouping);
    }
    std::stable_sort(grouping.brackets.begin(), grouping.brackets.end(),
                     [](const Bracket &one, const Bracket &other) {
                         return one.shots.front().takenAt < other.shots.front().takenAt;
                     });
    std::stable_sort(
        grouping.leftOver.begin(), grouping.leftOver.end(),
        [](const LeftOver &one, const LeftOver &other) { return isBefore(one.shot, other.shot); });
    return grouping;
}
