#pragma once

#include "Shot.h"

#include <QStringList>

#include <functional>
#include <limits>
#include <optional>
#include <vector>

struct BracketRules
{
    /// From the end of one exposure to the next shot; nothing: as the shots themselves suggest.
    std::optional<double> largestGapSeconds;
    int fewestPictures = 3; ///< two or more
    int mostPictures = std::numeric_limits<int>::max();
};

struct Bracket
{
    std::vector<Shot> shots; ///< in the order in which they were taken
    QStringList warnings;    ///< why it may be none, in words; mostly empty
};

/// A shot that belongs to no bracket, and why, in words.
struct LeftOver
{
    Shot shot;
    QString reason;
};

struct Grouping
{
    std::vector<Bracket> brackets;  ///< by the time of their first shots
    std::vector<LeftOver> leftOver; ///< by time; each shot stands in one of the two
};

namespace brackets {

/// Whether two shots show the same scene.
enum class Scene { Same, Other, Unknown };
using SceneTest = std::function<Scene(const Shot &one, const Shot &other)>;

/// Sorts shots into brackets.
///
/// A bracket is a run of shots of one camera, lens, focal length, size and orientation, soon after
/// each other, whose exposures differ: by the exposure bias or, where that stands still, by time,
/// aperture and sensitivity (see ExposurePattern). Their number does not matter, nor one shot that
/// is lacking or too many. A run is cut into brackets so that few shots are left over; that tells
/// brackets apart that follow each other in any of the cameras' orders. isSameScene is asked where
/// the metadata alone leave a doubt, such as after a long pause; may be empty, then a warning
/// stands there. It is called on this thread.
Grouping find(std::vector<Shot> shots, const BracketRules &rules,
              const SceneTest &isSameScene = {});

} // namespace brackets
