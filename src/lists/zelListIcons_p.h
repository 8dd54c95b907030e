#pragma once

// The pictures that every record list starts with, drawn by the library
// itself in a 16 by 16 grid so that they stay sharp at 16 and at 32 pixels.

#include <QIcon>
#include <QString>

class QPainter;

namespace zel::ListIcons {

inline constexpr int Count = 41;

// The image key of built-in picture i (0-based), in the order of its index.
QString Key(int i);
// Paints built-in picture i into the square (0,0)-(16,16) of p.
void Paint(int i, QPainter &p);
// Built-in picture i as an icon with 16 and 32 pixel renderings.
QIcon Make(int i);

} // namespace zel::ListIcons
