#pragma once
// The picture set of a skin: fourteen pictures loaded from the skin's folder.
// A role the skin has not loaded falls back to the classic Medium picture.
#include <QColor>
#include <QPixmap>
#include <QRectF>
#include <array>
#include <filesystem>

#include "interaction/screen.h"

class QPainter;

namespace qv::gui {

class SkinPictures {
 public:
  // Loads the file into the role's slot; false (and the slot unchanged) when
  // the file is missing or not a picture.
  bool Load(ImageRole role, const std::filesystem::path& file);
  void Paint(QPainter& painter, ImageRole role, const QRectF& rect) const;
  // The pointer of a carried piece: the skin's own icon.
  QPixmap Icon(ImageRole icon, qreal devicePixelRatio) const;

 private:
  std::array<QPixmap, ImageRoleCount> pictures_;
};

// Paints a picture of the set in force: a classic set, or the skin's pictures.
void PaintSetPicture(QPainter& painter, ImageRole role, const QRectF& rect, int skinKind, const SkinPictures& skin);

// A colour number of a skin file, packed blue-green-red.
QColor ColourFromBgr(int packed);

}  // namespace qv::gui
