#include "standalone/virtual_camera/description/camera_file.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// A file with one camera: the required keys and what a test adds.
QByteArray oneCamera(const QByteArray& more) {
  return R"({"cameras":[{"name":"A","connection":"usb","width":640,"height":480)" + more + "}]}";
}

TEST(CameraFile, TheDefaultFileDescribesOneUsbAndOneDisplayCamera) {
  const CameraFile file = readCameraFile(QStringLiteral(CAMERA_FOLDER "/cameras.json"));
  EXPECT_EQ(file.error.toStdString(), "");
  ASSERT_EQ(file.cameras.size(), 2U);
  EXPECT_EQ(file.cameras[0].connection, Connection::kUsb);
  EXPECT_EQ(file.cameras[0].size, QSize(1280, 720));
  EXPECT_EQ(file.cameras[1].connection, Connection::kBuiltIn);
}

TEST(CameraFile, APictureFileThatIsNoImageIsRefused) {
  const QTemporaryDir folder;
  QFile text(folder.filePath(QStringLiteral("text.png")));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly));
  text.write("no image");
  text.close();
  const QString error = parseCameraFile(oneCamera(R"(,"picture":{"kind":"image","file":"text.png"})"),
                                        folder.filePath(QStringLiteral("cameras.json")))
                            .error;
  EXPECT_TRUE(error.contains(QStringLiteral("cameras[0].picture.file names the file"))) << error.toStdString();
  EXPECT_TRUE(error.contains(QStringLiteral("which is not an image in one of the formats"))) << error.toStdString();
}

TEST(CameraFile, BarcodesAreReadWithTheirTimes) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("c.png"));
  ASSERT_TRUE(QImage(2, 2, QImage::Format_RGB32).save(file));
  const CameraFile read = parseCameraFile(
      oneCamera(R"(,"picture":{"kind":"barcode","size":0.5,"rotation":-30,"blur":1.5,"noise":0.1,"contrast":0.4,
      "background":"white","codes":[{"symbology":"ean-13","text":"4006381333931","file":"c.png","from":1,"to":2},
                                    {"symbology":"qr","text":"a-b","file":"c.png"}]})"),
      folder.filePath(QStringLiteral("cameras.json")));
  EXPECT_EQ(read.error.toStdString(), "");
  ASSERT_EQ(read.cameras.size(), 1U);
  const BarcodePicture expected{
      {{Symbology::kEan13, QStringLiteral("4006381333931"), file, 1, 2}, {Symbology::kQr, QStringLiteral("a-b"), file}},
      0.5,
      -30,
      1.5,
      0.1,
      0.4,
      BarcodeBackground::kWhite};
  EXPECT_EQ(read.cameras[0].picture, PictureDescription(expected));
}

TEST(CameraFile, NumberedPicturesComeInTheOrderOfTheirNumbers) {
  const QTemporaryDir folder;
  for (const char* name : {"walk-10.png", "walk-9.png", "2.png", "cover.png"}) {
    ASSERT_TRUE(QImage(2, 2, QImage::Format_RGB32).save(folder.filePath(QString::fromLatin1(name))));
  }
  const CameraFile read = parseCameraFile(oneCamera(R"(,"picture":{"kind":"folder","folder":".","seconds":2})"),
                                          folder.filePath(QStringLiteral("cameras.json")));
  EXPECT_EQ(read.error.toStdString(), "");
  ASSERT_EQ(read.cameras.size(), 1U);
  const ImageSequencePicture expected{
      {folder.filePath(QStringLiteral("2.png")), folder.filePath(QStringLiteral("walk-9.png")),
       folder.filePath(QStringLiteral("walk-10.png"))},
      2};
  EXPECT_EQ(read.cameras[0].picture, PictureDescription(expected));
}

// One code in a barcode picture.
QByteArray oneCode(const QByteArray& code) {
  return oneCamera(R"(,"picture":{"kind":"barcode","codes":[{)" + code + "}]}");
}

TEST(CameraFile, EveryMistakeIsRefusedWithOneSentence) {
  const std::pair<QByteArray, const char*> files[] = {
      {"{\n  \"cameras\": [}\n}", "line 2, column 16 is not valid JSON (object is missing after a comma)"},
      {"", "line 1, column 1 is not valid JSON (illegal value)"},
      {"[]", "the file is a list, but must be an object"},
      {"{}", "cameras is missing"},
      {R"({"cameras":[],"cameros":[]})", "the file has the unknown key \"cameros\"; allowed are $schema, cameras"},
      {R"({"cameras":{}})", "cameras is an object, but must be a list"},
      {R"({"cameras":[{"connection":"usb"}]})", "cameras[0].name is missing"},
      {oneCamera(R"(,"name":" ")"), "cameras[0].name is blank"},
      {oneCamera(R"(,"manufacturer":true)"), "cameras[0].manufacturer is true, but must be a text"},
      {oneCamera(R"(,"connection":"pci")"), "cameras[0].connection is \"pci\"; allowed are usb, display"},
      {oneCamera(R"(,"width":63)"), "cameras[0].width is 63; allowed is 64 to 4096"},
      {oneCamera(R"(,"height":4097)"), "cameras[0].height is 4097; allowed is 64 to 4096"},
      {oneCamera(R"(,"width":99.5)"), "cameras[0].width is the number 99.5, but must be a whole number"},
      {oneCamera(R"(,"width":"640")"), "cameras[0].width is the text \"640\", but must be a number"},
      {oneCamera(R"(,"framesPerSecond":0)"), "cameras[0].framesPerSecond is 0; allowed is 1 to 240"},
      {oneCamera(R"(,"format":"nv12","stride":"negative")"),
       "cameras[0].stride is \"negative\", which only rgb32 can be"},
      {oneCamera(R"(,"widht":1)"),
       "cameras[0] has the unknown key \"widht\"; allowed are name, manufacturer, description, connection, "
       "hardwareId, driverVersion, setupClass, width, height, framesPerSecond, format, stride, picture, faults"},
      {oneCamera(R"(,"picture":"test-pattern")"),
       "cameras[0].picture is the text \"test-pattern\", but must be an object"},
      {oneCamera(R"(,"picture":{"kind":"test-pattern","file":"a"})"),
       "cameras[0].picture has the unknown key \"file\"; allowed are kind"},
      {oneCamera(R"(,"picture":{"kind":"barcode"})"), "cameras[0].picture.codes is missing"},
      {oneCode(R"("symbology":"qr-code","text":"a")"),
       "cameras[0].picture.codes[0].symbology is \"qr-code\"; allowed are qr, data-matrix, aztec, pdf417, "
       "code-128, code-39, ean-13"},
      {oneCode(R"("symbology":"qr","text":"a")"),
       "cameras[0].picture.codes[0].file is missing: tools/encode_codes draws the codes of a description"},
      {oneCamera(R"(,"picture":{"kind":"barcode","codes":[],"contrast":2})"),
       "cameras[0].picture.contrast is 2; allowed is 0 to 1"},
      {oneCamera(R"(,"picture":{"kind":"image"})"), "cameras[0].picture.file is missing"},
      {oneCamera(R"(,"faults":[{"kind":"tick"}])"), "cameras[0].faults[0].at is missing"},
      {oneCamera(R"(,"faults":[{"kind":"error","at":-1}])"), "cameras[0].faults[0].at is -1; allowed is 0 to 86400"},
      {oneCamera(R"(,"faults":[{"kind":"no-open","at":1}])"),
       "cameras[0].faults[0] has the unknown key \"at\"; allowed are kind"},
      {oneCamera(R"(,"faults":[{"kind":"removed","at":3},{"kind":"returns","at":2}])"),
       "cameras[0].faults says \"returns\" at 2, when the camera is plugged in"},
      {oneCamera(R"(,"picture":{"kind":"images","files":[]})"),
       "cameras[0].picture.files holds 0 images; allowed are 1 to 1000"}};
  for (const auto& [json, error] : files) {
    const CameraFile file = parseCameraFile(json, QStringLiteral("c.json"));
    EXPECT_EQ(file.error.toStdString(), "c.json: " + std::string(error) + ".");
    EXPECT_TRUE(file.cameras.empty());
  }
}

}  // namespace
