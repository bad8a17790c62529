#pragma once
// Plays a sound file without waiting for it. Where there is no audio device,
// or the program was built without Qt Multimedia, nothing is heard.
#include <QObject>
#include <QString>
#include <map>

class QSoundEffect;

namespace qv::gui {

class SoundPlayer : public QObject {
 public:
  explicit SoundPlayer(QObject* parent = nullptr) : QObject(parent) {}
  void Play(const QString& file);

 private:
  std::map<QString, QSoundEffect*> effects_;
};

}  // namespace qv::gui
