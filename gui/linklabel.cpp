#include "gui/linklabel.h"

#include <QDesktopServices>
#include <QMouseEvent>
#include <QUrl>

namespace qv::gui {

namespace {
const QColor LinkBlue(0, 0, 192);
}

LinkLabel::LinkLabel(const QString& text, const std::string& address, QWidget* parent)
    : QLabel(text, parent), address_(address) {
  QPalette pal = palette();
  pal.setColor(QPalette::WindowText, address_.empty() ? QColor(Qt::black) : LinkBlue);
  setPalette(pal);
  if (!address_.empty()) setCursor(Qt::PointingHandCursor);
}

void LinkLabel::SetUnderlined(bool on) {
  QFont f = font();
  f.setUnderline(on);
  setFont(f);
}

void LinkLabel::enterEvent(QEnterEvent* event) {
  if (!address_.empty()) SetUnderlined(true);
  QLabel::enterEvent(event);
}

void LinkLabel::leaveEvent(QEvent* event) {
  SetUnderlined(false);
  QLabel::leaveEvent(event);
}

void LinkLabel::mousePressEvent(QMouseEvent* event) {
  if (address_.empty() || event->button() != Qt::LeftButton) return QLabel::mousePressEvent(event);
  SetUnderlined(false);
  emit Opened(QString::fromStdString(address_));
  OpenAddress(address_);
}

void OpenAddress(const std::string& address) { QDesktopServices::openUrl(QUrl(QString::fromStdString(address))); }

}  // namespace qv::gui
