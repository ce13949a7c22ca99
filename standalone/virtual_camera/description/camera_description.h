#pragma once

#include <QSize>
#include <QString>

#include <limits>
#include <variant>
#include <vector>

/// How a camera is attached; decides what its device path begins with.
enum class Connection { kUsb, kBuiltIn };

/// The device setup class under which a camera is registered.
enum class SetupClass { kCamera, kImage, kMedia };

/// What the camera says about its rows: positive (top to bottom), negative (bottom to top, and so it delivers them), or
/// nothing at all, in which case they run from top to bottom.
enum class Stride { kPositive, kNegative, kAbsent };

struct TestPatternPicture {
  bool operator==(const TestPatternPicture&) const = default;
};

/// An image file, fitted into the frame.
struct ImageFilePicture {
  QString file;  ///< absolute path

  bool operator==(const ImageFilePicture&) const = default;
};

enum class Symbology { kQr, kDataMatrix, kAztec, kPdf417, kCode128, kCode39, kEan13 };

/// A barcode that is held before the camera for a while.
struct ShownCode {
  Symbology symbology = Symbology::kQr;
  QString text;
  QString file;                                         ///< absolute path of the image that an encoder made of it
  double from = 0;                                      ///< seconds since the camera was started
  double to = std::numeric_limits<double>::infinity();  ///< seconds since the camera was started

  bool operator==(const ShownCode&) const = default;
};

enum class BarcodeBackground { kDesk, kWhite, kTestPattern };

/// A label with a barcode before a background, as a camera that is not perfect sees it.
struct BarcodePicture {
  std::vector<ShownCode> codes;  ///< at most one is in view: the last one whose time it is
  double size = 0.6;             ///< the label is fitted into this share of the frame's width and height
  double rotation = 0;           ///< degrees, clockwise
  double blur = 0;               ///< standard deviation, in pixels
  double noise = 0;              ///< standard deviation of the brightness, as a share of white
  double contrast = 1;           ///< 0: uniform grey
  BarcodeBackground background = BarcodeBackground::kDesk;

  bool operator==(const BarcodePicture&) const = default;
};

/// What the camera looks at.
using PictureDescription = std::variant<TestPatternPicture, ImageFilePicture, BarcodePicture>;

enum class FaultKind {
  kNoOpen,          ///< the device source cannot be created
  kNotRgb32,        ///< the camera offers a format that nothing can convert
  kFirstReadFails,  ///< opens, but every read fails: another program holds the camera
  kStall,           ///< no frames
  kTick,            ///< one stream tick in place of a frame
  kEndOfStream,
  kRemoved,      ///< unplugged: the removal is broadcast and no more frames come
  kInvalidated,  ///< unplugged: reads report that the device is gone
  kError,        ///< reads fail
  kSizeChange,   ///< frames have another size from here on
};

struct Fault {
  FaultKind kind = FaultKind::kNoOpen;
  double at = 0;                                              ///< seconds since the camera was started
  double duration = std::numeric_limits<double>::infinity();  ///< seconds; of a stall
  QSize size = {};                                            ///< of a size change

  bool operator==(const Fault&) const = default;
};

/// One virtual camera. An empty text means that the device does not have that property.
struct CameraDescription {
  QString name;
  QString manufacturer;
  QString description;
  QString hardwareId;
  QString driverVersion;
  Connection connection = Connection::kUsb;
  SetupClass setupClass = SetupClass::kCamera;
  QSize size;
  double framesPerSecond = 30;
  Stride stride = Stride::kPositive;
  PictureDescription picture;
  std::vector<Fault> faults;  ///< in order of time

  [[nodiscard]] bool hasFault(FaultKind kind) const;

  bool operator==(const CameraDescription&) const = default;
};
