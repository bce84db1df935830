#pragma once

#include <QImage>
#include <QList>

#include <memory>

/// What a user of OpenCV would call for the same job, on the same pictures.
namespace opencv {

class Bracket
{
public:
    explicit Bracket(const QList<QImage *> &pictures);
    ~Bracket();
    Bracket(const Bracket &) = delete;
    Bracket &operator=(const Bracket &) = delete;

    void alignMtb();
    void mergeMertens();

private:
    struct Pictures;
    std::unique_ptr<Pictures> d;
};

void setThreads(int threads);

} // namespace opencv
