#pragma once
#include <QMainWindow>
#include <memory>

#include "core/game.h"

namespace qv::gui {

class BoardWidget;

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(std::unique_ptr<Game> game, QWidget* parent = nullptr);
  ~MainWindow() override;

  Game& game() { return *game_; }

 private:
  std::unique_ptr<Game> game_;
  BoardWidget* board_ = nullptr;
};

}  // namespace qv::gui
