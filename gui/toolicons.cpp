#include "gui/toolicons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace qv::gui {

namespace {

constexpr int Side = 48;  // drawn large; Qt scales the icon down crisply

void Disc(QPainter& p, QPointF centre, double r, bool white) {
  p.setPen(QPen(QColor(40, 40, 40), 2.5));
  p.setBrush(white ? QColor(245, 242, 232) : QColor(40, 38, 38));
  p.drawEllipse(centre, r, r);
}

// A small monitor: the computer.
void Monitor(QPainter& p, QRectF r) {
  p.setPen(QPen(QColor(40, 40, 40), 2.5));
  p.setBrush(QColor(90, 140, 200));
  p.drawRoundedRect(r.adjusted(0, 0, 0, -r.height() * 0.25), 3, 3);
  p.setBrush(QColor(60, 60, 60));
  p.drawRect(QRectF(r.center().x() - r.width() * 0.2, r.bottom() - r.height() * 0.18, r.width() * 0.4, r.height() * 0.12));
}

// A head and shoulders: the player.
void Person(QPainter& p, QRectF r) {
  p.setPen(QPen(QColor(40, 40, 40), 2.5));
  p.setBrush(QColor(230, 180, 120));
  p.drawEllipse(QPointF(r.center().x(), r.top() + r.height() * 0.3), r.width() * 0.2, r.width() * 0.2);
  p.setBrush(QColor(70, 120, 70));
  p.drawChord(QRectF(r.left() + r.width() * 0.15, r.top() + r.height() * 0.55, r.width() * 0.7, r.height() * 0.8), 0, 180 * 16);
}

void Arrow(QPainter& p, bool left, bool bar, bool twice) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(40, 90, 160));
  auto triangle = [&](double x0) {
    QPainterPath t;
    const double w = 16;
    if (left) {
      t.moveTo(x0, 24);
      t.lineTo(x0 + w, 10);
      t.lineTo(x0 + w, 38);
    } else {
      t.moveTo(x0 + w, 24);
      t.lineTo(x0, 10);
      t.lineTo(x0, 38);
    }
    t.closeSubpath();
    p.drawPath(t);
  };
  if (twice) {
    triangle(left ? 10 : 8);
    triangle(left ? 24 : 22);
  } else {
    triangle(16);
  }
  if (bar) p.drawRect(left ? QRectF(6, 10, 4, 28) : QRectF(38, 10, 4, 28));
}

void DrawNewGame(QPainter& p) {
  p.setPen(QPen(QColor(40, 40, 40), 2));
  for (int r = 0; r < 4; ++r)
    for (int c = 0; c < 4; ++c)
      p.fillRect(QRectF(8 + c * 8, 8 + r * 8, 8, 8), (r + c) % 2 ? QColor(128, 82, 50) : QColor(232, 206, 160));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(8, 8, 32, 32));
}

void DrawCompute(QPainter& p) {
  Monitor(p, QRectF(6, 8, 36, 34));
  p.setPen(QPen(Qt::white, 3));
  p.drawLine(QPointF(16, 20), QPointF(22, 26));
  p.drawLine(QPointF(22, 26), QPointF(32, 14));
}

void DrawCancel(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(200, 40, 40));
  p.drawEllipse(QRectF(6, 6, 36, 36));
  p.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(17, 17), QPointF(31, 31));
  p.drawLine(QPointF(31, 17), QPointF(17, 31));
}

void DrawOfferDraw(QPainter& p) {
  QFont f = p.font();
  f.setPixelSize(30);
  f.setBold(true);
  p.setFont(f);
  p.setPen(QColor(40, 90, 160));
  p.drawText(QRectF(0, 0, Side, Side), Qt::AlignCenter, QString::fromUtf8("\u00bd"));
}

void DrawResign(QPainter& p) {
  p.setPen(QPen(QColor(60, 60, 60), 3));
  p.drawLine(QPointF(14, 6), QPointF(14, 44));
  p.setPen(QPen(QColor(120, 120, 120), 1.5));
  p.setBrush(Qt::white);
  p.drawRect(QRectF(15, 8, 24, 16));
}

void DrawPlayerComputer(QPainter& p) {
  Person(p, QRectF(2, 6, 22, 36));
  Monitor(p, QRectF(24, 12, 22, 24));
}

void DrawPlayerPlayer(QPainter& p) {
  Person(p, QRectF(2, 6, 22, 36));
  Person(p, QRectF(24, 6, 22, 36));
}

void DrawComputerComputer(QPainter& p) {
  Monitor(p, QRectF(2, 12, 22, 24));
  Monitor(p, QRectF(24, 12, 22, 24));
}

void DrawTurnBoard(QPainter& p) {
  Disc(p, QPointF(24, 12), 7, false);
  Disc(p, QPointF(24, 36), 7, true);
  p.setPen(QPen(QColor(40, 90, 160), 3));
  p.setBrush(Qt::NoBrush);
  p.drawArc(QRectF(6, 8, 36, 32), 120 * 16, 120 * 16);
  p.drawArc(QRectF(6, 8, 36, 32), -60 * 16, 120 * 16);
}

// A light bulb.
void DrawHint(QPainter& p) {
  p.setPen(QPen(QColor(40, 40, 40), 2.5));
  p.setBrush(QColor(250, 215, 60));
  p.drawEllipse(QRectF(12, 4, 24, 24));
  p.setBrush(QColor(150, 150, 150));
  p.drawRect(QRectF(18, 28, 12, 12));
  p.drawLine(QPointF(18, 34), QPointF(30, 34));
}

// A magnifying glass over a square of the board.
void DrawAnalyze(QPainter& p) {
  p.fillRect(QRectF(6, 6, 22, 22), QColor(128, 82, 50));
  p.setPen(QPen(QColor(40, 40, 40), 3));
  p.setBrush(QColor(200, 225, 245, 180));
  p.drawEllipse(QRectF(10, 10, 22, 22));
  p.setPen(QPen(QColor(40, 40, 40), 6, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(30, 30), QPointF(42, 42));
}

// A folder.
void DrawOpen(QPainter& p) {
  p.setPen(QPen(QColor(40, 40, 40), 2));
  p.setBrush(QColor(230, 190, 90));
  QPainterPath folder;
  folder.moveTo(6, 12);
  folder.lineTo(18, 12);
  folder.lineTo(22, 16);
  folder.lineTo(42, 16);
  folder.lineTo(42, 38);
  folder.lineTo(6, 38);
  folder.closeSubpath();
  p.drawPath(folder);
  p.setBrush(QColor(245, 215, 120));
  p.drawRect(QRectF(6, 21, 36, 17));
}

// A disk.
void DrawSave(QPainter& p) {
  p.setPen(QPen(QColor(40, 40, 40), 2));
  p.setBrush(QColor(40, 90, 160));
  p.drawRoundedRect(QRectF(8, 8, 32, 32), 3, 3);
  p.setBrush(QColor(235, 235, 235));
  p.drawRect(QRectF(14, 8, 20, 11));
  p.setBrush(QColor(245, 242, 232));
  p.drawRect(QRectF(13, 25, 22, 15));
}

// A cog wheel.
void DrawOptions(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(90, 96, 104));
  p.translate(24, 24);
  for (int tooth = 0; tooth < 8; ++tooth) {
    p.drawRoundedRect(QRectF(-4.5, -21, 9, 12), 2, 2);
    p.rotate(45);
  }
  p.drawEllipse(QPointF(0, 0), 14, 14);
  p.setBrush(QColor(235, 235, 235));
  p.drawEllipse(QPointF(0, 0), 6, 6);
}

}  // namespace

QIcon CommandIcon(Command command) {
  QPixmap pixmap(Side, Side);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  switch (command) {
    case Command::NewGame: DrawNewGame(p); break;
    case Command::Compute: DrawCompute(p); break;
    case Command::Cancel: DrawCancel(p); break;
    case Command::First: Arrow(p, true, true, false); break;
    case Command::Back: Arrow(p, true, false, false); break;
    case Command::Forward: Arrow(p, false, false, false); break;
    case Command::Last: Arrow(p, false, true, false); break;
    case Command::OfferDraw: DrawOfferDraw(p); break;
    case Command::Resign: DrawResign(p); break;
    case Command::PlayerComputer: DrawPlayerComputer(p); break;
    case Command::PlayerPlayer: DrawPlayerPlayer(p); break;
    case Command::ComputerComputer: DrawComputerComputer(p); break;
    case Command::TurnBoard: DrawTurnBoard(p); break;
    case Command::Hint: DrawHint(p); break;
    case Command::Analyze: DrawAnalyze(p); break;
    case Command::Open: DrawOpen(p); break;
    case Command::Save: DrawSave(p); break;
    case Command::Options: DrawOptions(p); break;
    default: break;
  }
  return QIcon(pixmap);
}

}  // namespace qv::gui
