#pragma once

#include <QString>
#include <QTemporaryFile>

#include <cstddef>
#include <cstdint>

/// The input as a file that exists as long as this object; in memory where the system can.
class InputFile
{
public:
    InputFile(const uint8_t *data, size_t size);
    ~InputFile();
    InputFile(const InputFile &) = delete;
    InputFile &operator=(const InputFile &) = delete;

    QString path() const { return name; }

private:
    int descriptor = -1; ///< of the file in memory; -1 when it is on the disk
    QTemporaryFile file;
    QString name;
};
