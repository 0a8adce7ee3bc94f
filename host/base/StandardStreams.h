// Standard input, output and error that were closed before the program started.
#pragma once

namespace host {

/// Takes the numbers of closed standard streams, so that no other file gets them: its bytes would
/// mix with the read-outs. Reading from or writing to such a stream fails; messages vanish. Call it
/// first of all.
void ReserveStandardStreams();

}  // namespace host
