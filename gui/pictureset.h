#pragma once
// The three classic picture sets, drawn with QPainter at whatever size and
// screen scale the board has, so that they stay crisp.
#include <QPixmap>
#include <QRectF>

#include "interaction/screen.h"

class QPainter;

namespace qv::gui {

// Paints one picture of the set chosen by skinKind into rect.
void PaintPicture(QPainter& painter, ImageRole role, const QRectF& rect, int skinKind);

// The pointer picture of a carried piece (the Small set's, for all three),
// for a screen of the given device pixel ratio.
QPixmap CarryPixmap(ImageRole icon, qreal devicePixelRatio);

// The highlight box colour of the classic sets.
QColor HighlightColour(bool darkSquare);

}  // namespace qv::gui
