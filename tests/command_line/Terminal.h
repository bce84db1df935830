#pragma once

#include <QByteArray>

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

/// A terminal that nobody looks at: a program writes to its end, the controller tells what is
/// shown.
struct Terminal
{
    Terminal()
        : controller(::posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (controller >= 0 && ::grantpt(controller) == 0 && ::unlockpt(controller) == 0)
            end = ::open(::ptsname(controller), O_RDWR | O_NOCTTY);
    }
    ~Terminal()
    {
        ::close(end);
        ::close(controller);
    }
    QByteArray shown() const
    {
        ::fcntl(controller, F_SETFL, O_NONBLOCK);
        QByteArray text;
        QByteArray part(4096, '\0');
        for (ssize_t length; (length = ::read(controller, part.data(), size_t(part.size()))) > 0;)
            text.append(part.constData(), int(length));
        return text;
    }

    int controller;
    int end = -1;
};
