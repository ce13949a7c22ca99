#include "standalone/virtual_camera/description/picture_reader.h"

#include <QFileInfo>
#include <QImageReader>

namespace {

template <class Enum>
using Word = JsonObjectReader::Word<Enum>;

enum class PictureKind { TestPattern, Image, Barcode };
constexpr std::array pictureWords{Word<PictureKind>{"test-pattern", PictureKind::TestPattern},
                                  Word<PictureKind>{"image", PictureKind::Image},
                                  Word<PictureKind>{"barcode", PictureKind::Barcode}};

constexpr std::array symbologyWords{Word<Symbology>{"qr", Symbology::Qr},
                                    Word<Symbology>{"data-matrix", Symbology::DataMatrix},
                                    Word<Symbology>{"aztec", Symbology::Aztec},
                                    Word<Symbology>{"pdf417", Symbology::Pdf417},
                                    Word<Symbology>{"code-128", Symbology::Code128},
                                    Word<Symbology>{"code-39", Symbology::Code39},
                                    Word<Symbology>{"ean-13", Symbology::Ean13}};

constexpr std::array backgroundWords{Word<BarcodeBackground>{"desk", BarcodeBackground::Desk},
                                     Word<BarcodeBackground>{"white", BarcodeBackground::White},
                                     Word<BarcodeBackground>{"test-pattern", BarcodeBackground::TestPattern}};

constexpr NumberRange timeRange{0, 86400};
constexpr qsizetype mostCodes = 64;

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
  code.symbology = reader.word("symbology", wordsOf(symbologyWords));
  code.text = reader.text("text");
  if (!reader.has("file")) {
    throw JsonContentError(reader.pathOf("file") +
                           QStringLiteral(" is missing: tools/encode_codes draws the codes of a description"));
  }
  code.file = readImageFile(reader, folder);
  code.from = reader.number("from", timeRange, code.from);
  code.to = reader.number("to", timeRange, code.to);
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
  if (codes.size() > mostCodes) {
    throw JsonContentError(QStringLiteral("%1 holds %2 codes; allowed are at most %3")
                               .arg(reader.pathOf("codes"))
                               .arg(codes.size())
                               .arg(mostCodes));
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
  picture.background = reader.word("background", wordsOf(backgroundWords), std::optional(picture.background));
  return picture;
}

}  // namespace

PictureDescription readPicture(const JsonObjectReader& reader, const QDir& folder) {
  switch (reader.word("kind", wordsOf(pictureWords))) {
    case PictureKind::TestPattern:
      reader.allowOnly({"kind"});
      break;
    case PictureKind::Image:
      reader.allowOnly({"kind", "file"});
      return ImageFilePicture{readImageFile(reader, folder)};
    case PictureKind::Barcode:
      return readBarcodePicture(reader, folder);
  }
  return TestPatternPicture{};
}
