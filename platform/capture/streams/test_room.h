// The still part of the test picture and the one who walks through it, as drawings.
#pragma once

#include <QImage>
#include <QPainter>

namespace vaktor {

/// A living room in the evening, 640 by 480, Format_RGB32. Every channel stays away from 0 and 255, so that noise can
/// be added without a limit.
QImage DessinePiece();

/// Somebody on foot, with the feet at (x, y). `phase`: the step, one double step from 0 to 1. `sens`: 1 walks to the
/// right, -1 to the left. The shirt is far brighter in blue than anything in the room: blue decides in the detection.
void DessinePassant(QPainter& peintre, double x, double y, double phase, int sens);

/// What DessinePassant may touch.
QRect CadrePassant(double x, double y);

}  // namespace vaktor
