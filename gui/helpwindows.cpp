#include "gui/helpwindows.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "gui/linklabel.h"
#include "gui/pictureset.h"
#include "interaction/help_windows.h"

namespace qv::gui {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

// CR LF of the program's texts as the line breaks of a label.
QString Lines(const std::string& text) {
  QString out = Q(text);
  out.replace("\r\n", "\n");
  return out;
}

QPixmap KingPicture(int side, qreal ratio) {
  QPixmap pixmap(QSize(side, side) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  PaintPicture(p, ImageRole::DarkBlackKing, QRectF(0, 0, side, side), 2);
  return pixmap;
}

}  // namespace

RulesWindow::RulesWindow(const Game& g, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Q(RulesCaption(g)));
  auto* layout = new QVBoxLayout(this);

  label2_ = new QLabel(Lines(RulesText(g)));
  label2_->setWordWrap(true);
  label2_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label2_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label2_->setMargin(8);
  QFont body = label2_->font();
  body.setPointSizeF(body.pointSizeF() * 1.1);
  label2_->setFont(body);
  auto* scroll = new QScrollArea;
  scroll->setWidget(label2_);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::StyledPanel);
  layout->addWidget(scroll, 1);

  const std::string link = RulesLink(g);
  label1_ = new LinkLabel(Q(link), link);
  label1_->setVisible(!link.empty());
  layout->addWidget(label1_);

  auto* command1 = new QPushButton("OK");
  command1->setDefault(true);
  connect(command1, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(command1);
  layout->addLayout(buttons);
  // As tall as the text needs, within a small screen.
  resize(600, std::clamp(label2_->heightForWidth(560) + 120, 260, 620));
}

AboutWindow::AboutWindow(QWidget* parent) : QDialog(parent) {
  const AboutContent about = About();
  setWindowTitle(Q("About " + about.product));
  auto* layout = new QVBoxLayout(this);

  auto* frame1 = new QFrame;
  frame1->setFrameShape(QFrame::StyledPanel);
  auto* inside = new QHBoxLayout(frame1);
  auto* picture = new QLabel;
  picture->setPixmap(KingPicture(72, devicePixelRatioF()));
  picture->setAlignment(Qt::AlignTop);
  inside->addWidget(picture);

  auto* words = new QVBoxLayout;
  auto* name = new QLabel(Q(about.product));
  QFont big = name->font();
  big.setPointSizeF(big.pointSizeF() * 1.8);
  big.setBold(true);
  name->setFont(big);
  words->addWidget(name);
  auto* description = new QLabel(Q(about.description));
  description->setWordWrap(true);
  words->addWidget(description);
  label3_ = new QLabel(Q(about.version));
  words->addWidget(label3_);
  words->addSpacing(10);
  for (const ContactLine& line : about.contacts) words->addWidget(new LinkLabel(Q(line.text), line.address));
  words->addStretch();
  inside->addLayout(words, 1);
  layout->addWidget(frame1);

  auto* cmdOK = new QPushButton("OK");
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  layout->addLayout(buttons);
  setMinimumWidth(540);
}

}  // namespace qv::gui
