#pragma once

#include "DecodedPicture.h"

/// Files that can be read without waiting for somebody to write them.
namespace regular_file {

/// Opens the file for reading and leaves its descriptor, which is the caller's to close; -1 on
/// error. Never blocks on a pipe or device. Any thread.
DecodeError open(const QString &path, int &descriptor);

} // namespace regular_file
