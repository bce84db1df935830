#pragma once

#include "Shot.h"

#include <vector>

/// How much a run of shots looks like one bracket by its exposures and its rhythm. Shots are added
/// one by one, in the order in which they were taken. A value.
class ExposurePattern
{
public:
    /// pause: in seconds, before this shot; of no meaning for the first one.
    void add(const Shot &shot, double pause);

    int count() const { return shots; }

    /// False when no shot more can make a bracket of it: too many exposures stand there twice, or
    /// one is not known.
    bool canGrow() const
    {
        return bias.canGrow(shots) || told.canGrow(shots) || light.canGrow(shots);
    }

    /// 0 for no bracket, else more than 0. It grows with the number of different exposures, so that
    /// the sum over a run is largest where few shots are left over; each bracket costs some, so
    /// that long ones are not cut in two.
    int worth() const;

    /// Exposures that differ from all before, by what worth() goes by.
    int differentExposures() const;

    /// A pause is much longer than the others: perhaps two brackets, or one that was interrupted.
    bool isRhythmBroken() const;

    /// The biases differ, but the exposures hardly do.
    bool isContradictory() const;

    /// All shots are exposed alike.
    bool isOfOneExposure() const;

private:
    enum class Order { Rising, Outward, Any };

    /// Stops of the shots on one scale.
    struct Scale
    {
        std::vector<double> inOrder;   ///< as taken, without those that stood there before
        std::vector<double> ascending; ///< the same
        bool isKnown = true;
        bool areInOneDirection = true;
        bool growOutward = true;

        void add(std::optional<double> stops);
        bool canGrow(int shots) const;
        double smallestStep() const;
        double range() const { return ascending.back() - ascending.front(); }
        bool hasEvenSteps() const;
        Order order() const;
    };

    int worthOf(const Scale &scale, bool mayBeUneven) const;
    int worthOfIntent(const Scale &scale) const;
    int worthOfLight() const;
    const Scale &scale() const;

    int shots = 0;
    Shot::Exposure mode = Shot::Exposure::Unknown; ///< the least trustworthy of all
    Scale bias;
    Scale told; ///< by the camera's maker notes
    Scale light;
    std::vector<double> pauses;
};
