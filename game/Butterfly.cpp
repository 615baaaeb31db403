#include "Butterfly.h"

Butterfly::Butterfly() {
  setType(TYPE);
  setSprite("Butterfly");
}
