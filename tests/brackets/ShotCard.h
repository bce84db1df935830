#pragma once

#include "bracket_finder.h"

#include <QHash>
#include <QRandomGenerator>
#include <QStringList>

#include <vector>

/// A made-up memory card of which it is known what belongs together: the shots of several cameras,
/// in patterns as photographers leave them.
class ShotCard
{
public:
    /// What is peculiar about the whole card.
    enum class Clock { Exact, WholeSeconds, WholeMinutes, SetBackInBetween };

    ShotCard(quint32 seed, Clock clock);

    /// Patterns by chance until there are so many shots.
    void fill(int shots);

    static int patternCount();

    std::vector<Shot> shots;
    /// The paths of each bracket.
    std::vector<QStringList> brackets;
    /// Names of the patterns by the paths of their shots, for messages.
    QHash<QString, QString> patternOf;

    /// What pictures of the shots would tell.
    brackets::Scene compare(const Shot &one, const Shot &other) const;
    /// A number of its own for each scene.
    int sceneAt(const QString &path) const { return sceneOf.value(path); }

private:
    friend struct Patterns;
    struct Camera
    {
        QString model;
        QString lens = QStringLiteral("50 mm");
        double focalLength = 50;
        QSize size{6000, 4000};
        int orientation = 1;
    };
    /// How a run of shots is taken.
    struct Style
    {
        enum class By { Bias, Hand, CameraWithoutBias, Unknown };
        By by = By::Bias;
        double least = 0.15; ///< seconds between the shots
        double most = 0.4;
        double exposureSeconds = 0.004; ///< at 0 stops
        double noise = 0;               ///< stops, of the camera's meter
    };

    double between(double least, double most);
    int pick(int count);
    void newScene() { ++scene; }
    void wait(double least, double most)
    {
        now = now.addMSecs(qint64(between(least, most) * 1000));
    }
    void shoot(double stops, const Style &style, QStringList *bracket);
    /// The stops that are no number are shots that were lost.
    void take(const std::vector<double> &stops, const Style &style, bool isBracket = true);
    QDateTime told(const QDateTime &time) const;

    QRandomGenerator random;
    Clock clock;
    Camera camera;
    QDateTime now;
    int number = 0;
    int scene = 0;
    qint64 setBack = 0;
    QString pattern;
    QHash<QString, int> sceneOf;
};
