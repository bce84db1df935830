#pragma once

#include <QImage>

#include <memory>
#include <vector>

/// The exposure fusion of OpenCV on the same pictures, which it holds in its own layout.
class MertensRival
{
public:
    explicit MertensRival(const std::vector<QImage> &shots);
    ~MertensRival();
    MertensRival(const MertensRival &) = delete;
    MertensRival &operator=(const MertensRival &) = delete;

    void merge();

    /// The last merge's result, rounded to 8 bits, Format_BGR888.
    QImage result() const;

private:
    struct Pictures;
    std::unique_ptr<Pictures> d;
};
