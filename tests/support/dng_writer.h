#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>

/// A camera raw file (DNG, uncompressed 16-bit red-green-green-blue mosaic) made by the tests.
struct DngRecipe
{
    int width = 64;
    int height = 48;
    /// Place of the picture's first pixel, in the numbering of TIFF: 1 upright, 6 turned so that it
    /// must be shown rotated a quarter clockwise, 8 a quarter counter-clockwise, 3 upside down.
    int orientation = 1;
    /// Values at which white looks neutral, relative to green; the camera's white balance.
    double neutralRed = 0.5;
    double neutralBlue = 0.5;
    /// Linear light of the scene at a pixel of the mosaic for channel 0 red, 1 green, 2 blue; 0..1.
    /// What the camera records is that times the channel's neutral value.
    std::function<double(int x, int y, int channel)> scene = [](int, int, int) { return 0.5; };
    /// "" leaves the tag out.
    QByteArray make = "Vesk";
    QByteArray model = "Test Camera";
    /// Without it the file is an ordinary TIFF with a mosaic's tags.
    bool dngVersion = true;
    /// "2026:06:21 12:00:00"; "" leaves all data of the exposure out.
    QByteArray takenAt = "";
    double exposureSeconds = 0.01;
    double exposureBias = 0.0;
};

/// The file's bytes; the pixels stand at its end.
QByteArray dngFile(const DngRecipe &recipe);

/// Writes it to path; false when the file cannot be written.
bool writeDng(const QString &path, const DngRecipe &recipe);

/// An ordinary picture as some programs leave it: TIFF, one (grey) or three channels of 8 or 16
/// bits, that still carries the camera's make and model. All bytes of its pixels have
/// that value.
QByteArray plainTiff(int width, int height, int channels, int bits, std::uint8_t value,
                     const QByteArray &make, const QByteArray &model);
