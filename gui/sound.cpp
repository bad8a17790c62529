#include "gui/sound.h"

#include <QFileInfo>
#include <QUrl>

#ifdef QUORVANIS_HAVE_MULTIMEDIA
#include <QSoundEffect>
#endif

namespace qv::gui {

void SoundPlayer::Play(const QString& file) {
#ifdef QUORVANIS_HAVE_MULTIMEDIA
  if (!QFileInfo::exists(file)) return;
  QSoundEffect*& effect = effects_[file];
  if (effect == nullptr) {
    effect = new QSoundEffect(this);
    effect->setSource(QUrl::fromLocalFile(file));
  }
  effect->play();
#else
  (void)file;
#endif
}

}  // namespace qv::gui
