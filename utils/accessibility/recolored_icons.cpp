#include "utils/accessibility/recolored_icons.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include "utils/platform/folder_path.h"

namespace vexa::utils::accessibility {
namespace {

QString recoloredStyle(QString style, const QString& color) {
  static const QRegularExpression kFill(QStringLiteral(R"re(((?:^|;)\s*fill\s*:\s*+)(?!none\s*(?:;|$))[^;]*)re"));
  return style.replace(kFill, QStringLiteral("\\1") + color);
}

QString recoloredValue(QStringView attribute, const QString& value, const QString& color) {
  if (attribute == u"style") return recoloredStyle(value, color);
  return attribute == u"fill" && value.trimmed() != u"none" ? color : value;
}

void copyStart(const QXmlStreamReader& reader, QXmlStreamWriter& writer, const QString& color) {
  writer.writeStartElement(reader.qualifiedName().toString());
  // What names no colour is black, unless the picture as a whole has one.
  if (reader.name() == u"svg" && !reader.attributes().hasAttribute(QStringLiteral("fill"))) {
    writer.writeAttribute(QStringLiteral("fill"), color);
  }
  for (const QXmlStreamAttribute& attribute : reader.attributes()) {
    writer.writeAttribute(attribute.qualifiedName().toString(),
                          recoloredValue(attribute.qualifiedName(), attribute.value().toString(), color));
  }
}

}  // namespace

QByteArray recoloredSvg(const QByteArray& svg, const QColor& color) {
  QByteArray result;
  QXmlStreamReader reader(svg);
  // Prefixes stay as they are written.
  reader.setNamespaceProcessing(false);
  QXmlStreamWriter writer(&result);
  bool isSvg = false;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartElement()) {
      isSvg = isSvg || reader.name() == u"svg";
      copyStart(reader, writer, color.name());
    } else if (!reader.hasError()) {
      writer.writeCurrentToken(reader);
    }
  }
  return isSvg && !reader.hasError() ? result : QByteArray();
}

RecoloredIcons::RecoloredIcons(QObject* parent) : QObject(parent) {}

QString RecoloredIcons::path(const QString& source, const QColor& color) {
  const QString key = source + color.name();
  const auto known = made.find(key);
  return known != made.end() ? known->second : made.emplace(key, make(source, color)).first->second;
}

QString RecoloredIcons::make(const QString& source, const QColor& color) {
  QFile icon(source);
  const QByteArray svg = icon.open(QIODevice::ReadOnly) ? recoloredSvg(icon.readAll(), color) : QByteArray();
  const QString folder = QString::fromStdWString(platform::GetFolderPath(platform::kTemporaryFolder));
  if (svg.isEmpty() || folder.isEmpty() || !QDir().mkpath(folder)) return {};

  const QString name = QFileInfo(source).completeBaseName();
  auto* const file = new QTemporaryFile(
      QDir(folder).filePath((name.isEmpty() ? QStringLiteral("temp_svg") : name) + QStringLiteral("_XXXXXX.svg")),
      this);
  if (!file->open() || file->write(svg) != svg.size() || !file->flush()) return {};
  file->close();
  return file->fileName();
}

}  // namespace vexa::utils::accessibility
