#include "gui/boardwidget.h"

#include <QPainter>

namespace qv::gui {

BoardWidget::BoardWidget(const Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  setMinimumSize(320, 320);
}

void BoardWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int side = std::min(width(), height());
  const double square = side / 8.0;
  const QColor light(238, 221, 180), dark(120, 78, 48);
  for (int row = 2; row <= 9; ++row)
    for (int column = 1; column <= 8; ++column) {
      const int cell = row * 10 + column;
      const QRectF rect((column - 1) * square, (9 - row) * square, square, square);
      painter.fillRect(rect, SquareIsDark(cell, game_.RuleSet.PiecesOnBlack) ? dark : light);
      const int value = game_.Board[cell];
      if (value == 0 || value == OffBoard) continue;
      const QRectF piece = rect.adjusted(square * 0.12, square * 0.12, -square * 0.12, -square * 0.12);
      painter.setPen(QPen(QColor(40, 40, 40), square * 0.04));
      painter.setBrush(value > 0 ? QColor(245, 240, 230) : QColor(30, 30, 30));
      painter.drawEllipse(piece);
      if (value == WhiteKing || value == BlackKing) {
        painter.setPen(QPen(QColor(212, 175, 55), square * 0.06));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(piece.adjusted(square * 0.16, square * 0.16, -square * 0.16, -square * 0.16));
      }
    }
}

}  // namespace qv::gui
