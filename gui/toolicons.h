#pragma once
// Toolbar pictures, drawn so that they need no image files.
#include <QIcon>

#include "interaction/screen.h"

namespace qv::gui {

QIcon CommandIcon(Command command);

}  // namespace qv::gui
