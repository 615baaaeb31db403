#include "StandardStreams.h"

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace gw {

void keepStandardStreams() {
#ifndef _WIN32
  // Opened for reading, and always in the lowest place that is free.
  int place = 0;
  do
    place = open("/dev/null", O_RDONLY | O_CLOEXEC);
  while (place >= 0 && place <= STDERR_FILENO);
  if (place > STDERR_FILENO)
    close(place);
#endif
}

} // namespace gw
