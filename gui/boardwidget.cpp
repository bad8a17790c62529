#include "gui/boardwidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "gui/pictureset.h"
#include "interaction/boardview.h"
#include "interaction/mouse_entry.h"

namespace qv::gui {

namespace {
MouseButton ButtonOf(Qt::MouseButton b) {
  if (b == Qt::RightButton) return MouseButton::Right;
  if (b == Qt::MiddleButton) return MouseButton::Middle;
  return MouseButton::Left;
}
constexpr int LabelMargin = 22;
}  // namespace

BoardWidget::BoardWidget(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

double BoardWidget::SquarePixels() const {
  const Screen& sc = session_.screen;
  return static_cast<double>(SquareTwips(session_.game.Settings.SkinKind, sc.SkinBoardSize, sc.TwipsPerPixel)) /
         sc.TwipsPerPixel;
}

QPointF BoardWidget::BoardOrigin() const { return {LabelMargin, 4}; }

QSize BoardWidget::sizeHint() const {
  const int side = static_cast<int>(std::ceil(SquarePixels() * 8));
  return {side + LabelMargin + 6, side + LabelMargin + 6};
}

QPoint BoardWidget::SquareCentre(int index) const {
  const double sq = SquarePixels();
  const QPointF o = BoardOrigin();
  return QPoint(static_cast<int>(o.x() + (index % 8 + 0.5) * sq), static_cast<int>(o.y() + (index / 8 + 0.5) * sq));
}

int BoardWidget::IndexAt(QPointF pos) const {
  const double sq = SquarePixels();
  const QPointF o = BoardOrigin();
  const int column = static_cast<int>(std::floor((pos.x() - o.x()) / sq));
  const int row = static_cast<int>(std::floor((pos.y() - o.y()) / sq));
  if (column < 0 || column > 7 || row < 0 || row > 7) return -1;
  return row * 8 + column;
}

QPoint BoardWidget::TwipsFrom(int index, QPointF pos) const {
  const double sq = SquarePixels();
  const QPointF o = BoardOrigin();
  const double x = pos.x() - (o.x() + (index % 8) * sq), y = pos.y() - (o.y() + (index / 8) * sq);
  const int tpp = session_.screen.TwipsPerPixel;
  return {static_cast<int>(std::lround(x * tpp)), static_cast<int>(std::lround(y * tpp))};
}

void BoardWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const Screen& sc = session_.screen;
  const Options& o = session_.game.Settings;
  const double sq = SquarePixels();
  const QPointF origin = BoardOrigin();
  const int tpp = sc.TwipsPerPixel;
  p.fillRect(rect(), palette().window());
  QFont numberFont = font();
  numberFont.setPixelSize(std::max(8, static_cast<int>(sq / 4.5)));
  for (int index = 0; index < 64; ++index) {
    const SquareView& view = sc.View.Squares[index];
    // Whole pixels for each square's edges so that neighbours meet without seams.
    const double left = std::round(origin.x() + (index % 8) * sq), top = std::round(origin.y() + (index / 8) * sq);
    const double right = std::round(origin.x() + (index % 8 + 1) * sq), bottom = std::round(origin.y() + (index / 8 + 1) * sq);
    const QRectF cell(left, top, right - left, bottom - top);
    PaintSetPicture(p, view.Image, cell, o.SkinKind, skin_);
    if (view.Boxed) {
      const bool dark = view.Image != ImageRole::EmptyLight && (view.Image < ImageRole::LightBlackKing);
      const QColor box = o.SkinKind == 4 ? ColourFromBgr(dark ? sc.HighlightDark : sc.HighlightLight) : HighlightColour(dark);
      p.setPen(QPen(box, 2));
      p.setBrush(Qt::NoBrush);
      const double a = 16.0 / tpp + 1, b = (SquareTwips(o.SkinKind, sc.SkinBoardSize, tpp) - 26.0) / tpp;
      p.drawRect(QRectF(left + a, top + a, b - a, b - a));
    }
    if (view.Number > 0) {
      // White with a dark edge, readable on squares and pieces alike.
      p.setFont(numberFont);
      const QPointF at(left + 100.0 / tpp + 1, top + 100.0 / tpp + numberFont.pixelSize());
      const QString number = QString::number(view.Number);
      p.setPen(QColor(0, 0, 0, 200));
      for (QPointF d : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) p.drawText(at + d, number);
      p.setPen(Qt::white);
      p.drawText(at, number);
    }
  }
  // Notation labels: files under the board, ranks at its left.
  QFont labelFont = font();
  labelFont.setPixelSize(12);
  p.setFont(labelFont);
  p.setPen(palette().windowText().color());
  const double pitch = LabelPitchTwips(o.SkinKind, sc.SkinBoardSize, tpp) / static_cast<double>(tpp);
  for (int i = 0; i < 8; ++i) {
    const QString file = QString::fromStdString(sc.View.FileLabels[i]);
    if (!file.isEmpty())
      p.drawText(QRectF(origin.x() + i * pitch, origin.y() + 8 * sq + 2, pitch, LabelMargin - 4), Qt::AlignCenter, file);
    const QString rank = QString::fromStdString(sc.View.RankLabels[i]);
    if (!rank.isEmpty())
      p.drawText(QRectF(0, origin.y() + (7 - i) * pitch, LabelMargin - 4, pitch), Qt::AlignRight | Qt::AlignVCenter, rank);
  }
}

void BoardWidget::mousePressEvent(QMouseEvent* event) {
  const int index = IndexAt(event->position());
  // A press with no other button held starts afresh: the release of the last
  // press went to a message box that press opened.
  if (pressedIndex_ >= 0 && event->buttons() == event->button()) pressedIndex_ = -1;
  if (index < 0 || pressedIndex_ >= 0) return;
  pressedIndex_ = index;
  SquarePress(session_, index, ButtonOf(event->button()));
  update();
}

void BoardWidget::mouseMoveEvent(QMouseEvent* event) {
  if (pressedIndex_ >= 0) {
    const QPoint t = TwipsFrom(pressedIndex_, event->position());
    SquareMove(session_, pressedIndex_, t.x(), t.y());
    return;
  }
  const int index = IndexAt(event->position());
  if (index < 0) {
    WindowMouseMove(session_);
    return;
  }
  const QPoint t = TwipsFrom(index, event->position());
  SquareMove(session_, index, t.x(), t.y());
}

void BoardWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (pressedIndex_ < 0) return;
  const int index = pressedIndex_;
  pressedIndex_ = -1;
  const QPoint t = TwipsFrom(index, event->position());
  SquareRelease(session_, index, ButtonOf(event->button()), t.x(), t.y());
  update();
}

void BoardWidget::leaveEvent(QEvent*) {
  if (pressedIndex_ < 0) WindowMouseMove(session_);
}

}  // namespace qv::gui
