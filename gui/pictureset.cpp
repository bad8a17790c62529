#include "gui/pictureset.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace qv::gui {

namespace {

struct Palette {
  QColor dark, light, darkGrain, lightGrain;
};

// Small: a tournament board in green and buff; Medium: walnut and maple;
// Big: slate and ivory.
Palette PaletteOf(int skinKind) {
  switch (skinKind) {
    case 0: return {QColor(58, 110, 70), QColor(236, 226, 192), QColor(48, 96, 60), QColor(226, 214, 176)};
    case 1:
    case 3: return {QColor(72, 84, 96), QColor(240, 234, 218), QColor(62, 74, 86), QColor(230, 224, 206)};
    default: return {QColor(128, 82, 50), QColor(232, 206, 160), QColor(116, 72, 42), QColor(222, 194, 146)};
  }
}

void PaintSquare(QPainter& p, const QRectF& r, bool dark, const Palette& pal) {
  p.fillRect(r, dark ? pal.dark : pal.light);
  // A faint grain so that large squares do not look flat.
  p.setPen(QPen(dark ? pal.darkGrain : pal.lightGrain, std::max(1.0, r.width() / 60.0)));
  for (int i = 1; i < 4; ++i) {
    const double y = r.top() + r.height() * i / 4.0 + (i % 2 ? r.height() / 20.0 : 0);
    p.drawLine(QPointF(r.left(), y), QPointF(r.right(), y - r.height() / 30.0));
  }
}

void PaintCrown(QPainter& p, const QRectF& disc, const QColor& colour) {
  const double w = disc.width() * 0.46, h = disc.height() * 0.30;
  const QPointF c = disc.center();
  const double left = c.x() - w / 2, right = c.x() + w / 2, base = c.y() + h / 2, top = c.y() - h / 2;
  QPainterPath crown;
  crown.moveTo(left, base);
  crown.lineTo(left, top + h * 0.25);
  crown.lineTo(left + w * 0.25, top + h * 0.62);
  crown.lineTo(c.x(), top);
  crown.lineTo(right - w * 0.25, top + h * 0.62);
  crown.lineTo(right, top + h * 0.25);
  crown.lineTo(right, base);
  crown.closeSubpath();
  p.setPen(QPen(colour.darker(160), std::max(1.0, disc.width() / 40.0)));
  p.setBrush(colour);
  p.drawPath(crown);
}

void PaintPiece(QPainter& p, const QRectF& square, bool white, bool king) {
  const double inset = square.width() * 0.11;
  const QRectF disc = square.adjusted(inset, inset, -inset, -inset);
  const double lift = square.width() * 0.035;
  const QColor face = white ? QColor(246, 242, 232) : QColor(38, 36, 36);
  const QColor edge = white ? QColor(168, 160, 146) : QColor(10, 10, 10);
  // Shadow, then the side of the piece, then its face.
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0, 0, 0, 70));
  p.drawEllipse(disc.translated(lift, lift * 1.6));
  p.setBrush(edge);
  p.drawEllipse(disc.translated(0, lift));
  QRadialGradient shade(disc.center() - QPointF(disc.width() * 0.2, disc.height() * 0.2), disc.width() * 0.75);
  shade.setColorAt(0, white ? face.lighter(104) : face.lighter(170));
  shade.setColorAt(1, face);
  p.setBrush(shade);
  p.setPen(QPen(edge, std::max(1.0, square.width() / 45.0)));
  p.drawEllipse(disc);
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(white ? QColor(200, 192, 176) : QColor(78, 74, 72), std::max(1.0, square.width() / 40.0)));
  const double ring = disc.width() * 0.17;
  p.drawEllipse(disc.adjusted(ring, ring, -ring, -ring));
  if (king) PaintCrown(p, disc, QColor(214, 172, 48));
}

}  // namespace

void PaintPicture(QPainter& p, ImageRole role, const QRectF& rect, int skinKind) {
  const Palette pal = PaletteOf(skinKind);
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  switch (role) {
    case ImageRole::EmptyDark: PaintSquare(p, rect, true, pal); break;
    case ImageRole::EmptyLight: PaintSquare(p, rect, false, pal); break;
    case ImageRole::DarkBlackKing:
    case ImageRole::DarkWhiteKing:
    case ImageRole::DarkBlackMan:
    case ImageRole::DarkWhiteMan:
      PaintSquare(p, rect, true, pal);
      PaintPiece(p, rect, role == ImageRole::DarkWhiteKing || role == ImageRole::DarkWhiteMan,
                 role == ImageRole::DarkBlackKing || role == ImageRole::DarkWhiteKing);
      break;
    case ImageRole::LightBlackKing:
    case ImageRole::LightWhiteKing:
    case ImageRole::LightBlackMan:
    case ImageRole::LightWhiteMan:
      PaintSquare(p, rect, false, pal);
      PaintPiece(p, rect, role == ImageRole::LightWhiteKing || role == ImageRole::LightWhiteMan,
                 role == ImageRole::LightBlackKing || role == ImageRole::LightWhiteKing);
      break;
    case ImageRole::WhiteManIcon:
    case ImageRole::BlackManIcon:
    case ImageRole::WhiteKingIcon:
    case ImageRole::BlackKingIcon:
      PaintPiece(p, rect, role == ImageRole::WhiteManIcon || role == ImageRole::WhiteKingIcon,
                 role == ImageRole::WhiteKingIcon || role == ImageRole::BlackKingIcon);
      break;
    case ImageRole::None: break;
  }
  p.restore();
}

QPixmap CarryPixmap(ImageRole icon, qreal devicePixelRatio) {
  const int side = 38;  // the Small set's square
  QPixmap pixmap(QSize(side, side) * devicePixelRatio);
  pixmap.setDevicePixelRatio(devicePixelRatio);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  PaintPicture(p, icon, QRectF(0, 0, side, side), 0);
  return pixmap;
}

QColor HighlightColour(bool darkSquare) { return darkSquare ? QColor(255, 255, 0) : QColor(128, 128, 0); }

}  // namespace qv::gui
