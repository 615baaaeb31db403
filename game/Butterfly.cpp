#include "Butterfly.h"

Butterfly::Butterfly() {
  setType(BUTTERFLY_TYPE);
  setSprite(BUTTERFLY_TYPE);
}
