#pragma once
// A label that reads as a link: underlined while the pointer is over it, and
// a click hands its address to the system's browser or mail program.
#include <QLabel>
#include <string>

namespace qv::gui {

class LinkLabel : public QLabel {
  Q_OBJECT
 public:
  // `address` is what a click opens; empty: the label is plain text.
  LinkLabel(const QString& text, const std::string& address, QWidget* parent = nullptr);
  void SetUnderlined(bool on);
  bool Underlined() const { return font().underline(); }

 signals:
  void Opened(const QString& address);

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  std::string address_;
};

// Hands `address` to the system's default handler; a failure is not reported.
void OpenAddress(const std::string& address);

}  // namespace qv::gui
