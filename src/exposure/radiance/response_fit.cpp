// Debevec and Malik's least squares: for a place i of the scene with light E and a shot s,
//   g(level) = ln E(i) + ln exposure(s).
// The lights are eliminated place by place, so that the unknowns are few: how far the curve g lies
// from the profile's, h, and how far the exposures' logarithms lie from what is known, d. The curve
// is kept smooth by its distance from the profile's, which has the right shape near black, where
// shots say little. What disagrees (things that moved, flare) loses its say in three rounds.

#include "response_fit.h"

#include "LevelTables.h"
#include "linear_solver.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace radiance {
namespace {

constexpr size_t kLevels = Response::kByteLevels;
constexpr size_t kMiddle = 128; // where the curve is held
constexpr size_t kFewestSamples = 60;
constexpr double kAgreement = 0.1; // of logarithms; beyond, a shot loses its say

/// The levels of one channel of a sample, and how much each counts.
struct Equation
{
    std::vector<unsigned char> levels;
    std::vector<double> weights;
};

std::vector<double> logLight(const Response &profile)
{
    const std::vector<float> &light = profile.channel(1);
    const int step = (profile.levels() - 1) / (int(kLevels) - 1);
    std::vector<double> curve(kLevels);
    for (size_t level = 1; level < kLevels; ++level)
        curve[level] = std::log(std::max(double(light[level * size_t(step)]), 1e-6));
    curve[0] = curve[1] - std::log(2.0);
    return curve;
}

/// By what the noise of a level makes of the logarithm of its light.
std::vector<double> weightsOfLevels(const std::vector<double> &curve)
{
    constexpr double kLeastNoise = 0.05;
    std::vector<double> weights(kLevels, 0.0);
    for (size_t level = 1; level + 1 < kLevels; ++level) {
        const double slope = (curve[level + 1] - curve[level - 1]) / 2.0;
        weights[level] =
            double(weightOfLevel(double(level) / (kLevels - 1))) / (kLeastNoise + slope);
    }
    return weights;
}

std::vector<Equation> equationsOf(const std::vector<LevelSample> &samples,
                                  const std::vector<double> &weights)
{
    std::vector<Equation> equations;
    for (const LevelSample &sample : samples) {
        for (size_t c = 0; c < 3; ++c) {
            Equation equation;
            for (const auto &levels : sample.levels) {
                equation.levels.push_back(levels[c]);
                equation.weights.push_back(weights[levels[c]] * weights[levels[c]]);
            }
            const auto counts = [](double weight) { return weight > 0.0; };
            if (std::count_if(equation.weights.begin(), equation.weights.end(), counts) > 1)
                equations.push_back(std::move(equation));
        }
    }
    return equations;
}

/// The equations' common solution, in rounds.
class Fit
{
public:
    Fit(std::vector<Equation> &&allEquations, std::vector<double> startCurve,
        std::vector<double> startExposures, bool curveIsFree, double trust)
        : equations(std::move(allEquations))
        , curve(std::move(startCurve))
        , exposures(std::move(startExposures))
        , firstUnknownExposure(curveIsFree ? kLevels : 0)
        , size(firstUnknownExposure + exposures.size())
        , trustInExposures(trust)
    {
    }

    void run();

    std::vector<Equation> equations;
    std::vector<double> curve;     ///< logarithms
    std::vector<double> exposures; ///< logarithms

private:
    struct Term
    {
        size_t unknown;
        double factor;
        double weight;
    };

    bool isCurveFree() const { return firstUnknownExposure > 0; }
    double misfit(const Equation &equation, size_t shot) const
    {
        return curve[equation.levels[shot]] - exposures[shot];
    }
    std::vector<double> robustWeights(const Equation &equation) const;
    void add(const Equation &equation);
    void addTerms(const std::vector<Term> &terms, double totalWeight);
    void keepSmooth();
    void keepExposures();
    void at(size_t row, size_t column, double value) { matrix[row * size + column] += value; }

    const size_t firstUnknownExposure;
    const size_t size;
    const double trustInExposures;
    std::vector<double> matrix;
    std::vector<double> right;
    std::vector<double> curveMoves;
    std::vector<double> exposureMoves;
    double totalOfWeights = 0.0;
};

/// Less for a shot that lies far from the weighted middle of all.
std::vector<double> Fit::robustWeights(const Equation &equation) const
{
    std::vector<double> weights = equation.weights;
    double sum = 0.0;
    double total = 0.0;
    for (size_t shot = 0; shot < weights.size(); ++shot) {
        sum += weights[shot] * misfit(equation, shot);
        total += weights[shot];
    }
    for (size_t shot = 0; shot < weights.size(); ++shot) {
        const double distance = std::abs(misfit(equation, shot) - sum / total);
        weights[shot] *= std::min(1.0, kAgreement / std::max(distance, 1e-9));
    }
    return weights;
}

void Fit::add(const Equation &equation)
{
    const std::vector<double> weights = robustWeights(equation);
    const double total = std::accumulate(weights.begin(), weights.end(), 0.0);
    double mean = 0.0;
    for (size_t shot = 0; shot < weights.size(); ++shot)
        mean += weights[shot] * misfit(equation, shot) / total;
    std::vector<Term> terms;
    for (size_t shot = 0; shot < weights.size(); ++shot) {
        if (weights[shot] == 0.0)
            continue;
        const size_t first = terms.size();
        if (isCurveFree())
            terms.push_back({equation.levels[shot], 1.0, weights[shot]});
        terms.push_back({firstUnknownExposure + shot, -1.0, weights[shot]});
        for (size_t a = first; a < terms.size(); ++a) {
            right[terms[a].unknown] -=
                weights[shot] * terms[a].factor * (misfit(equation, shot) - mean);
            for (size_t b = first; b < terms.size(); ++b)
                at(terms[a].unknown, terms[b].unknown,
                   weights[shot] * terms[a].factor * terms[b].factor);
        }
    }
    addTerms(terms, total);
}

/// What eliminating the light of the place takes away.
void Fit::addTerms(const std::vector<Term> &terms, double totalWeight)
{
    for (const Term &a : terms)
        for (const Term &b : terms)
            at(a.unknown, b.unknown, -a.factor * a.weight * b.factor * b.weight / totalWeight);
    totalOfWeights += totalWeight;
}

/// The whole distance from the profile's curve is kept smooth, not only what this round adds.
void Fit::keepSmooth()
{
    constexpr double kSmoothness = 2.0;
    constexpr double kPull = 1e-5;
    constexpr double kHold = 1.0;
    const double stiffness = kSmoothness * totalOfWeights;
    constexpr double kBend[] = {1.0, -2.0, 1.0};
    for (size_t level = 1; level + 1 < kLevels; ++level) {
        double bend = 0.0;
        for (size_t i = 0; i < 3; ++i)
            bend += kBend[i] * curveMoves[level - 1 + i];
        for (size_t i = 0; i < 3; ++i) {
            right[level - 1 + i] -= stiffness * kBend[i] * bend;
            for (size_t j = 0; j < 3; ++j)
                at(level - 1 + i, level - 1 + j, stiffness * kBend[i] * kBend[j]);
        }
    }
    for (size_t level = 0; level < kLevels; ++level) {
        const double pull = totalOfWeights * (level == kMiddle ? kHold : kPull);
        at(level, level, pull);
        right[level] -= pull * curveMoves[level];
    }
}

void Fit::keepExposures()
{
    const double trust = trustInExposures * totalOfWeights / double(exposures.size());
    for (size_t shot = 0; shot < exposures.size(); ++shot) {
        at(firstUnknownExposure + shot, firstUnknownExposure + shot, trust);
        right[firstUnknownExposure + shot] -= trust * exposureMoves[shot];
    }
}

void Fit::run()
{
    constexpr int kRounds = 4;
    curveMoves.assign(kLevels, 0.0);
    exposureMoves.assign(exposures.size(), 0.0);
    for (int round = 0; round < kRounds; ++round) {
        matrix.assign(size * size, 0.0);
        right.assign(size, 0.0);
        totalOfWeights = 0.0;
        for (const Equation &equation : equations)
            add(equation);
        if (isCurveFree())
            keepSmooth();
        keepExposures();
        const std::vector<double> moves = registration::solved(matrix, right);
        for (size_t i = 0; i < moves.size(); ++i) {
            const bool isLevel = i < firstUnknownExposure;
            (isLevel ? curve[i] : exposures[i - firstUnknownExposure]) += moves[i];
            (isLevel ? curveMoves[i] : exposureMoves[i - firstUnknownExposure]) += moves[i];
        }
    }
}

/// How much more light one shot let in than another, as the places tell that both show well; 0
/// where none does.
double logRatio(const std::vector<LevelSample> &samples, const std::vector<double> &curve,
                size_t one, size_t other)
{
    std::vector<double> ratios;
    for (const LevelSample &sample : samples) {
        for (size_t c = 0; c < 3; ++c) {
            const unsigned char a = sample.levels[one][c];
            const unsigned char b = sample.levels[other][c];
            if (weightOfLevel(a / 255.0) > 0.5F && weightOfLevel(b / 255.0) > 0.5F)
                ratios.push_back(curve[a] - curve[b]);
        }
    }
    if (ratios.empty())
        return 0.0;
    const auto middle = ratios.begin() + ptrdiff_t(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

/// Logarithms, from each shot to the next brighter one.
std::vector<double> exposuresOfPixels(const std::vector<LevelSample> &samples,
                                      const std::vector<double> &curve, size_t shots)
{
    std::vector<long> brightness(shots, 0);
    for (const LevelSample &sample : samples)
        for (size_t shot = 0; shot < shots; ++shot)
            brightness[shot] += sample.levels[shot][1];
    std::vector<size_t> order(shots);
    std::iota(order.begin(), order.end(), size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return brightness[a] < brightness[b]; });
    std::vector<double> exposures(shots, 0.0);
    for (size_t i = 1; i < shots; ++i)
        exposures[order[i]] =
            exposures[order[i - 1]] + logRatio(samples, curve, order[i], order[i - 1]);
    return exposures;
}

/// Never falling, and nothing for black.
std::vector<double> lightOf(const std::vector<double> &curve)
{
    std::vector<double> light(kLevels, 0.0);
    for (size_t level = 1; level < kLevels; ++level)
        light[level] = std::max(light[level - 1], std::exp(curve[level]));
    return light;
}

} // namespace

ResponseFit fitResponse(const std::vector<LevelSample> &samples, size_t shots,
                        const std::vector<double> &knownExposures, const Response &profile,
                        bool recoversCurve)
{
    constexpr double kTrustBesideCurve = 0.25;
    constexpr double kTrustInKnown = 0.01;
    constexpr double kNoTrust = 1e-9;
    const std::vector<double> curve = logLight(profile);
    const bool isKnown = !knownExposures.empty();
    std::vector<double> start(shots);
    if (isKnown)
        std::transform(knownExposures.begin(), knownExposures.end(), start.begin(),
                       [](double exposure) { return std::log(exposure); });
    else
        start = exposuresOfPixels(samples, curve, shots);

    const bool isCurveFree = recoversCurve && isKnown && samples.size() >= kFewestSamples;
    const double trust = isCurveFree ? kTrustBesideCurve : isKnown ? kTrustInKnown : kNoTrust;
    Fit fit(equationsOf(samples, weightsOfLevels(curve)), curve, start, isCurveFree, trust);
    if (fit.equations.size() >= kFewestSamples)
        fit.run();

    ResponseFit result;
    for (const double exposure : fit.exposures)
        result.exposures.push_back(std::exp(exposure));
    if (isCurveFree && fit.equations.size() >= kFewestSamples)
        result.light = lightOf(fit.curve);
    return result;
}

} // namespace radiance
