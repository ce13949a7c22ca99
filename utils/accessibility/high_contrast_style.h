#pragma once

#include <QColor>
#include <QList>
#include <QString>

namespace vexa::utils::accessibility {

class RecoloredIcons;

/// The style sheet that gives the dialogs the colours of the user's contrast theme: what `hostSheet` says about fonts,
/// sizes, distances and icons, with colours and borders of the theme's own. `systemColors` are the 30 colours as the
/// high-contrast filter reads them. An SVG icon comes from `icons`, in the colour that belongs to what it stands on;
/// one that cannot be had is left out, and steps that are left without an icon are told apart by their borders.
[[nodiscard]] QString highContrastStyleSheet(const QString& hostSheet, const QList<QColor>& systemColors,
                                             RecoloredIcons& icons);

}  // namespace vexa::utils::accessibility
