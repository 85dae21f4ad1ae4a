#include <sys/utsname.h>

#include "Diagnostics.h"

// Systems other than Windows answer, but have no platform number of their own.
SystemVersion CurrentSystem() {
  utsname name;
  SystemVersion system;
  system.bKnown = uname(&name) == 0;
  return system;
}
