#include "gui/skinpictures.h"

#include <QImageReader>
#include <QPainter>

#include "gui/pictureset.h"

namespace qv::gui {

namespace {
constexpr int SkinKindOfFile = 4;
constexpr int ClassicMediumKind = 2;
}  // namespace

bool SkinPictures::Load(ImageRole role, const std::filesystem::path& file) {
  if (role == ImageRole::None) return false;
  QPixmap picture;
  if (!picture.load(QString::fromStdString(file.string()))) return false;
  pictures_[static_cast<int>(role)] = picture;
  return true;
}

void SkinPictures::Paint(QPainter& painter, ImageRole role, const QRectF& rect) const {
  if (role == ImageRole::None) return;
  const QPixmap& picture = pictures_[static_cast<int>(role)];
  if (picture.isNull()) {
    PaintPicture(painter, role, rect, ClassicMediumKind);
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect, picture, QRectF(picture.rect()));
  painter.restore();
}

QPixmap SkinPictures::Icon(ImageRole icon, qreal devicePixelRatio) const {
  if (icon != ImageRole::None && !pictures_[static_cast<int>(icon)].isNull()) return pictures_[static_cast<int>(icon)];
  return CarryPixmap(icon, devicePixelRatio);
}

void PaintSetPicture(QPainter& painter, ImageRole role, const QRectF& rect, int skinKind, const SkinPictures& skin) {
  if (skinKind == SkinKindOfFile) skin.Paint(painter, role, rect);
  else PaintPicture(painter, role, rect, skinKind);
}

QColor ColourFromBgr(int packed) { return QColor(packed & 0xff, (packed >> 8) & 0xff, (packed >> 16) & 0xff); }

}  // namespace qv::gui
