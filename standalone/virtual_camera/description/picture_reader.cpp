#include "standalone/virtual_camera/description/picture_reader.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace {

template <class Enum>
using Word = JsonObjectReader::Word<Enum>;

enum class PictureKind { kTestPattern, kImage, kImages, kFolder, kBarcode };
constexpr std::array kPictureWords{
    Word<PictureKind>{"test-pattern", PictureKind::kTestPattern}, Word<PictureKind>{"image", PictureKind::kImage},
    Word<PictureKind>{"images", PictureKind::kImages}, Word<PictureKind>{"folder", PictureKind::kFolder},
    Word<PictureKind>{"barcode", PictureKind::kBarcode}};

constexpr std::array kSymbologyWords{Word<Symbology>{"qr", Symbology::kQr},
                                     Word<Symbology>{"data-matrix", Symbology::kDataMatrix},
                                     Word<Symbology>{"aztec", Symbology::kAztec},
                                     Word<Symbology>{"pdf417", Symbology::kPdf417},
                                     Word<Symbology>{"code-128", Symbology::kCode128},
                                     Word<Symbology>{"code-39", Symbology::kCode39},
                                     Word<Symbology>{"ean-13", Symbology::kEan13}};

constexpr std::array kBackgroundWords{Word<BarcodeBackground>{"desk", BarcodeBackground::kDesk},
                                      Word<BarcodeBackground>{"white", BarcodeBackground::kWhite},
                                      Word<BarcodeBackground>{"test-pattern", BarcodeBackground::kTestPattern}};

constexpr NumberRange kTimeRange{0, 86400};
constexpr qsizetype kMostCodes = 64;

constexpr qsizetype kMostImages = 1000;
constexpr NumberRange kImageTimeRange{0.02, 86400};

// The path of an image; `place` is what names it.
QString imagePath(const PictureFiles& files, const QString& name, const QString& place) {
  QString file = files.folder.absoluteFilePath(name);
  if (!files.areProbed) return file;
  if (!QFileInfo(file).isFile()) {
    throw JsonContentError(
        QStringLiteral("%1 names the file \"%2\", which is not there").arg(place, QDir::toNativeSeparators(file)));
  }
  if (!QImageReader(file).canRead()) {
    throw JsonContentError(QStringLiteral("%1 names the file \"%2\", which is not an image in one of the formats %3")
                               .arg(place, QDir::toNativeSeparators(file),
                                    QString::fromLatin1(QImageReader::supportedImageFormats().join(", "))));
  }
  return file;
}

QString readImageFile(const JsonObjectReader& reader, const PictureFiles& files) {
  return imagePath(files, reader.text("file"), reader.pathOf("file"));
}

void checkCount(const QString& place, qsizetype count) {
  if (count >= 1 && count <= kMostImages) return;
  throw JsonContentError(
      QStringLiteral("%1 holds %2 images; allowed are 1 to %3").arg(place).arg(count).arg(kMostImages));
}

ImageSequencePicture readImages(const JsonObjectReader& reader, const PictureFiles& files) {
  reader.allowOnly({"kind", "files", "seconds"});
  ImageSequencePicture picture;
  const QJsonArray list = reader.list("files", true);
  checkCount(reader.pathOf("files"), list.size());
  for (qsizetype i = 0; i < list.size(); ++i) {
    const QString place = QStringLiteral("%1[%2]").arg(reader.pathOf("files")).arg(i);
    if (!list.at(i).isString()) throw JsonContentError(place + QStringLiteral(" must be a text"));
    picture.files << imagePath(files, list.at(i).toString(), place);
  }
  picture.seconds = reader.number("seconds", kImageTimeRange, picture.seconds);
  return picture;
}

// The number that a file's name ends with before its suffix, if any.
std::optional<qulonglong> trailingNumber(const QString& name) {
  const QString base = name.left(name.lastIndexOf(QLatin1Char('.')));
  const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
  const auto digits = std::find_if_not(base.rbegin(), base.rend(), isDigit) - base.rbegin();
  bool fits = false;
  const qulonglong number = base.right(digits).toULongLong(&fits);
  return fits ? std::optional(number) : std::nullopt;
}

QStringList numberedFiles(const QDir& folder) {
  std::vector<std::pair<qulonglong, QString>> files;
  for (const QString& name : folder.entryList(QDir::Files)) {
    if (const auto number = trailingNumber(name)) files.emplace_back(*number, folder.absoluteFilePath(name));
  }
  std::ranges::sort(files);
  QStringList sorted;
  for (const auto& [number, file] : files) sorted << file;
  return sorted;
}

ImageSequencePicture readFolder(const JsonObjectReader& reader, const PictureFiles& files) {
  reader.allowOnly({"kind", "folder", "seconds"});
  ImageSequencePicture picture;
  const QString place = reader.pathOf("folder");
  const QDir named(files.folder.absoluteFilePath(reader.text("folder")));
  if (!named.exists()) {
    throw JsonContentError(QStringLiteral("%1 names the folder \"%2\", which is not there")
                               .arg(place, QDir::toNativeSeparators(named.path())));
  }
  picture.files = numberedFiles(named);
  checkCount(QStringLiteral("%1 names the folder \"%2\", which").arg(place, QDir::toNativeSeparators(named.path())),
             picture.files.size());
  for (const QString& file : picture.files) imagePath(files, file, place);
  picture.seconds = reader.number("seconds", kImageTimeRange, picture.seconds);
  return picture;
}

ShownCode readCode(const JsonObjectReader& reader, const PictureFiles& files) {
  reader.allowOnly({"symbology", "text", "file", "from", "to"});
  ShownCode code;
  code.symbology = reader.word("symbology", wordsOf(kSymbologyWords));
  code.text = reader.text("text");
  if (reader.has("file")) {
    code.file = readImageFile(reader, files);
  } else if (files.codesMustBeDrawn) {
    throw JsonContentError(reader.pathOf("file") +
                           QStringLiteral(" is missing: tools/encode_codes draws the codes of a description"));
  }
  code.from = reader.number("from", kTimeRange, code.from);
  code.to = reader.number("to", kTimeRange, code.to);
  if (code.to <= code.from) {
    throw JsonContentError(QStringLiteral("%1 is %2; allowed is only what comes after the code's beginning at %3")
                               .arg(reader.pathOf("to"))
                               .arg(code.to)
                               .arg(code.from));
  }
  return code;
}

BarcodePicture readBarcodePicture(const JsonObjectReader& reader, const PictureFiles& files) {
  reader.allowOnly({"kind", "codes", "size", "rotation", "blur", "noise", "contrast", "background"});
  BarcodePicture picture;
  const QJsonArray codes = reader.list("codes", true);
  if (codes.size() > kMostCodes) {
    throw JsonContentError(QStringLiteral("%1 holds %2 codes; allowed are at most %3")
                               .arg(reader.pathOf("codes"))
                               .arg(codes.size())
                               .arg(kMostCodes));
  }
  for (qsizetype i = 0; i < codes.size(); ++i) {
    picture.codes.push_back(
        readCode({codes.at(i), QStringLiteral("%1[%2]").arg(reader.pathOf("codes")).arg(i)}, files));
  }
  picture.size = reader.number("size", {0.05, 1}, picture.size);
  picture.rotation = reader.number("rotation", {-360, 360}, picture.rotation);
  picture.blur = reader.number("blur", {0, 20}, picture.blur);
  picture.noise = reader.number("noise", {0, 1}, picture.noise);
  picture.contrast = reader.number("contrast", {0, 1}, picture.contrast);
  picture.background = reader.word("background", wordsOf(kBackgroundWords), std::optional(picture.background));
  return picture;
}

}  // namespace

PictureDescription readPicture(const JsonObjectReader& reader, const PictureFiles& files) {
  switch (reader.word("kind", wordsOf(kPictureWords))) {
    case PictureKind::kTestPattern:
      reader.allowOnly({"kind"});
      break;
    case PictureKind::kImage:
      reader.allowOnly({"kind", "file"});
      return ImageFilePicture{readImageFile(reader, files)};
    case PictureKind::kImages:
      return readImages(reader, files);
    case PictureKind::kFolder:
      return readFolder(reader, files);
    case PictureKind::kBarcode:
      return readBarcodePicture(reader, files);
  }
  return TestPatternPicture{};
}
