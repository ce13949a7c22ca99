#pragma once

#include <QByteArray>
#include <QColor>
#include <QObject>
#include <QString>

#include <map>

namespace vexa::utils::accessibility {

/// Every `fill` of an SVG picture in one colour, as attribute and in `style` attributes; "none" is no colour and stays.
/// Empty when the text is no well-formed SVG.
[[nodiscard]] QByteArray recoloredSvg(const QByteArray& svg, const QColor& color);

/// Copies of SVG icons in other colours, as files in the module's temporary folder. They are gone with this object.
class RecoloredIcons : public QObject {
  Q_OBJECT

 public:
  explicit RecoloredIcons(QObject* parent);

  /// The path of the icon `source`, a file or a Qt resource, in a colour; made on the first call. Empty when the icon
  /// cannot be read or its copy cannot be written.
  [[nodiscard]] QString path(const QString& source, const QColor& color);

 private:
  [[nodiscard]] QString make(const QString& source, const QColor& color);

  /// By source and colour. Not a QHash: its insertions end the process where there is no memory.
  std::map<QString, QString> made;
};

}  // namespace vexa::utils::accessibility
