#pragma once

#include <QColor>
#include <QList>
#include <QString>

namespace vexa::utils::accessibility {

/// The style sheet that gives the dialogs the colours of the user's high-contrast theme. `systemColors` are the 30
/// colours as the high-contrast filter reads them.
[[nodiscard]] QString highContrastStyleSheet(const QList<QColor>& systemColors);

}  // namespace vexa::utils::accessibility
