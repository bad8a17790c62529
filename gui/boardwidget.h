#pragma once
#include <QWidget>

#include "core/game.h"

namespace qv::gui {

// Paints the 64 squares of a game's Board with its pieces.
class BoardWidget : public QWidget {
  Q_OBJECT
 public:
  explicit BoardWidget(const Game& game, QWidget* parent = nullptr);
  QSize sizeHint() const override { return {480, 480}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Game& game_;
};

}  // namespace qv::gui
