#pragma once

#include <Shot.h>

#include <QString>

/// What a camera noted of an exposure, in the user's language. Any thread.
namespace exposure_texts {

/// Whole seconds, or a fraction: "1/125 s". Empty when not known.
QString time(double seconds);
/// With a sign, against another exposure: "+2.0 EV".
QString stops(double stops);
/// Time, aperture and sensitivity as far as they are known: "1/125 s  f/8  ISO 100".
QString settings(const Shot &shot);

} // namespace exposure_texts
