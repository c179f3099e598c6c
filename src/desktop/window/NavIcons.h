#pragma once

#include <QIcon>

namespace vantrel {

/// Pictures of the navigator's buttons.
enum class NavPicture { Previous, Next, NewPage, DeletePage, Open, Save };

/// Draws one in that colour, sharp at any scale of the screen.
QIcon NavIcon(NavPicture picture, const QColor& color);

} // namespace vantrel
