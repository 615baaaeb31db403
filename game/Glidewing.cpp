#include "Glidewing.h"

Glidewing::Glidewing() {
  setType(TYPE);
  setSprite("Glidewing");
}
