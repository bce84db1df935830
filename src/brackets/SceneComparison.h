#pragma once

#include "bracket_finder.h"

#include <QHash>
#include <QString>

#include <vector>

/// Tells by small copies of two pictures whether they show the same scene, whatever their
/// exposures. Grey levels become ranks, which stay when an exposure only brightens; ranks are
/// normalised by the mean and the deviation of their surroundings, as skies are bright and the
/// ground is dark in most pictures; then the correlation decides, at the shift where it is largest.
/// The camera's own thumbnails will do where there are some. It remembers each picture that it has
/// read. One thread at a time.
class SceneComparison
{
public:
    /// Unknown where one cannot be read or is mostly black or blown out.
    brackets::Scene compare(const Shot &one, const Shot &other);

    /// From -1 to 1, the largest up to 0.6; nothing where the answer is unknown.
    std::optional<double> similarity(const Shot &one, const Shot &other);

private:
    /// Normalised ranks, row by row; empty when there is nothing to see.
    struct Small
    {
        int width = 0;
        int height = 0;
        std::vector<float> values;
    };

    const Small &smallOf(const Shot &shot);
    static Small read(const Shot &shot);
    static double correlation(const Small &one, const Small &other, int dx, int dy);

    QHash<QString, Small> known;
};
