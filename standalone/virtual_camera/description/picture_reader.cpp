#include "standalone/virtual_camera/description/picture_reader.h"

#include <QFileInfo>
#include <QImageReader>

namespace {

template <class Enum>
using Word = JsonObjectReader::Word<Enum>;

enum class PictureKind { kTestPattern, kImage, kBarcode };
constexpr std::array kPictureWords{Word<PictureKind>{"test-pattern", PictureKind::kTestPattern},
                                   Word<PictureKind>{"image", PictureKind::kImage},
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

QString readImageFile(const JsonObjectReader& reader, const QDir& folder) {
  QString file = folder.absoluteFilePath(reader.text("file"));
  if (!QFileInfo(file).isFile()) {
    throw JsonContentError(QStringLiteral("%1 names the file \"%2\", which is not there")
                               .arg(reader.pathOf("file"), QDir::toNativeSeparators(file)));
  }
  if (!QImageReader(file).canRead()) {
    throw JsonContentError(QStringLiteral("%1 names the file \"%2\", which is not an image in one of the formats %3")
                               .arg(reader.pathOf("file"), QDir::toNativeSeparators(file),
                                    QString::fromLatin1(QImageReader::supportedImageFormats().join(", "))));
  }
  return file;
}

ShownCode readCode(const JsonObjectReader& reader, const QDir& folder) {
  reader.allowOnly({"symbology", "text", "file", "from", "to"});
  ShownCode code;
  code.symbology = reader.word("symbology", wordsOf(kSymbologyWords));
  code.text = reader.text("text");
  if (!reader.has("file")) {
    throw JsonContentError(reader.pathOf("file") +
                           QStringLiteral(" is missing: tools/encode_codes draws the codes of a description"));
  }
  code.file = readImageFile(reader, folder);
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

BarcodePicture readBarcodePicture(const JsonObjectReader& reader, const QDir& folder) {
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
        readCode({codes.at(i), QStringLiteral("%1[%2]").arg(reader.pathOf("codes")).arg(i)}, folder));
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

PictureDescription readPicture(const JsonObjectReader& reader, const QDir& folder) {
  switch (reader.word("kind", wordsOf(kPictureWords))) {
    case PictureKind::kTestPattern:
      reader.allowOnly({"kind"});
      break;
    case PictureKind::kImage:
      reader.allowOnly({"kind", "file"});
      return ImageFilePicture{readImageFile(reader, folder)};
    case PictureKind::kBarcode:
      return readBarcodePicture(reader, folder);
  }
  return TestPatternPicture{};
}
