#pragma once
// The 8 x 8 board with its notation labels. It paints the board view of the
// screen model and turns mouse events into the press / move / release events
// of move entry, in twips relative to the square pressed.
#include <QWidget>

#include "gui/skinpictures.h"
#include "interaction/session.h"

namespace qv::gui {

class BoardWidget : public QWidget {
  Q_OBJECT
 public:
  explicit BoardWidget(Session& session, QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  // Size of a square and the margin for the labels, in pixels.
  double SquarePixels() const;
  QPointF BoardOrigin() const;
  // The centre of a SquareView cell, in widget coordinates.
  QPoint SquareCentre(int index) const;
  // The pictures of a skin file, used while SkinKind is 4.
  SkinPictures& Skin() { return skin_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  int IndexAt(QPointF pos) const;  // -1 outside the grid
  QPoint TwipsFrom(int index, QPointF pos) const;

  Session& session_;
  SkinPictures skin_;
  int pressedIndex_ = -1;  // the square that holds the mouse while a button is down
};

}  // namespace qv::gui
