#pragma once

#include <QByteArray>
#include <QImage>

#include <array>
#include <vector>

/// A JPEG file with a gain map, read by what ISO 21496-1 and CIPA DC-007 say of such files, and by
/// nothing of the code that writes them. Pixels are decoded by Qt. The base must be sRGB.
class BrightJpeg
{
public:
    struct Channel
    {
        double least = 0.0;
        double most = 0.0;
        double gamma = 0.0;
        double baseOffset = 0.0;
        double alternateOffset = 0.0;
    };

    explicit BrightJpeg(const QByteArray &file);

    QByteArray problem;         ///< empty when all is as it should be
    qint64 listedBaseBytes = 0; ///< of the first picture, as the list of pictures has it
    qint64 baseBytes = 0;       ///< where the first picture really ends
    bool hasBaseVersion = false;
    QByteArray mapFile;
    QImage base;
    QImage map;
    double baseHeadroom = 0.0;
    double alternateHeadroom = 0.0;
    std::array<Channel, 3> channels;

    /// What a screen shows that reaches the alternate headroom: linear light, white is 1; red,
    /// green and blue in turn, row by row.
    std::vector<float> shown() const;

    /// The light of a level of sRGB: IEC 61966-2-1.
    static double lightOf(int level);

private:
    struct Segment
    {
        int marker = 0;
        int begin = 0; ///< of the contents, behind the length
        int length = 0;
    };

    static std::vector<Segment> segmentsOf(const QByteArray &file);
    void readList(const QByteArray &file);
    void readTerms();
    double gainAt(int x, int y, int channel) const;
};
