#include "Glidewing.h"

Glidewing::Glidewing() {
  setType(GLIDEWING_TYPE);
  setSprite(GLIDEWING_TYPE);
}
