#pragma once

/// Keeps what the image libraries print about odd files off standard error: errors reach the user
/// as results of the decoder. For the whole process; call it once, first in main().
void silenceImageLibraries();
