#pragma once

/// How the program ends, for scripts: the numbers of sysexits.h. They are documented in the help
/// text and in the manual page, and never change their meaning.
enum class ExitCode {
    Ok = 0,
    Usage = 64,       ///< wrong options or arguments
    BadData = 65,     ///< an input is no picture, is damaged, too large or of another size
    NoInput = 66,     ///< an input is missing, a directory, or cannot be read
    NoDevice = 69,    ///< the OpenCL device is not there, or cannot merge
    WrongResult = 70, ///< a device merges to other bytes than the processor
    NoMemory = 71,
    CannotCreate = 73, ///< the output exists already, or its folder does not take it
    WriteFailed = 74,  ///< the output could not be written to its end, e.g. the disk is full
};
