#pragma once

namespace gw {

/// To be called first in `main`. Where the program was started with a standard stream
/// closed, the next file to be opened would get that stream's place, and all that is
/// printed. This keeps the place: what is printed there fails, as it should.
void keepStandardStreams();

} // namespace gw
