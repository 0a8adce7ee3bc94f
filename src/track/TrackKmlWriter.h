#pragma once

#include "base/WideString.h"

namespace ferolin {

class TrackStore;

/// Writes the route as a new numbered KML file, Track0001.kml to Track9999.kml: the first number
/// that is free in `folder`, which is made if it is missing. No file is written for an empty track
/// or when all numbers are taken. A file that cannot be created or written
/// is given up silently.
void WriteTrackKml(const TrackStore& track, const WideString& folder);

}  // namespace ferolin
