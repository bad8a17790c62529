// The Options dialog on the offscreen platform: opened by its command, a
// page's settings changed and stored by OK, and the window showing them.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <memory>

#include "gui/mainwindow.h"
#include "gui/optionsdialog.h"

namespace qv::gui {

namespace {

template <class W>
W* Find(QWidget* dialog, const QString& text) {
  for (W* widget : dialog->findChildren<W*>())
    if (widget->text() == text) return widget;
  return nullptr;
}

}  // namespace

TEST(OptionsDialogWindow, OkStoresTheLevelAndTheWindowShowsIt) {
  auto game = std::make_unique<Game>();
  game->Settings.ConfirmExit = 0;
  MainWindow window(std::move(game));
  window.show();
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<OptionsDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    seen = true;
    EXPECT_EQ(dialog->Pages()->count(), 4);
    QCheckBox* depth = Find<QCheckBox>(dialog, "Search to a fixed depth");
    ASSERT_NE(depth, nullptr);
    depth->click();
    for (QSlider* slider : dialog->findChildren<QSlider*>())
      if (slider->accessibleName() == "Depth") slider->setValue(7);
    Find<QCheckBox>(dialog, "Extended search")->click();
    // The time choice went off when the depth choice came on.
    EXPECT_FALSE(Find<QCheckBox>(dialog, "Think for a fixed time")->isChecked());
    dialog->ApplyClicked();
    dialog->accept();
  });
  window.action(Command::Options)->trigger();
  ASSERT_TRUE(seen);
  const Options& o = window.game().Settings;
  EXPECT_EQ(o.DepthMode, 1);
  EXPECT_EQ(o.DepthLimit, 7);
  EXPECT_EQ(o.ExtendedSearch, 0);
  EXPECT_EQ(window.screen().StrengthText, "Strength: 9   Depth: 7 ply");
}

}  // namespace qv::gui
