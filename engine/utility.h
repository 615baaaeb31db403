#pragma once

#include "Box.h"
#include "Vector.h"

#include <string>

namespace gw {

class Object;

/// The local wall-clock time as "hh:mm:ss". One static buffer: the next call
/// overwrites it.
const char *getTimeString();

/// True when |a - b| is strictly less than `epsilon`.
bool areFloatsEqual(float a, float b, float epsilon);

/// True when the positions are at most one cell apart in x and in y.
bool positionsIntersect(Vector p1, Vector p2);

/// True when the boxes overlap; edges are part of a box, so boxes that only
/// touch intersect.
bool boxesIntersect(Box a, Box b);

/// The object's box in world coordinates, where it is now or as it would be at
/// `where`. The object must not be null. @{
Box getWorldBox(const Object *p_o);
Box getWorldBox(const Object *p_o, Vector where); ///@}

/// Removes one carriage return from the end of `str`, if there is one.
void discardCarriageReturn(std::string &str);

/// `text` for a terminal: control characters, and bytes that are no UTF-8, are shown
/// as `\\x1b`.
std::string printable(const std::string &text);

/// As much of `text` as a message can do with: the first 200 characters, and "..." for
/// the rest.
std::string shortened(const std::string &text);

/// True when `filename`, in UTF-8, names a regular file (or a link to one). Directories,
/// pipes and devices are not: reading them can fail late, block or never end.
bool isRegularFile(const std::string &filename);

} // namespace gw
