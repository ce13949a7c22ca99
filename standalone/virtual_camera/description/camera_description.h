#pragma once

#include <limits>
#include <variant>
#include <vector>

#include <QSize>
#include <QString>

/// How a camera is attached; decides what its device path begins with.
enum class Connection { Usb, BuiltIn };

/// The device setup class under which a camera is registered.
enum class SetupClass { Camera, Image, Media };

/// What the camera says about its rows: positive (top to bottom), negative (bottom to top, and so it delivers them), or
/// nothing at all, in which case they run from top to bottom.
enum class Stride { Positive, Negative, Absent };

struct TestPatternPicture {
  bool operator==(const TestPatternPicture&) const = default;
};

/// An image file, fitted into the frame.
struct ImageFilePicture {
  QString file;  ///< absolute path

  bool operator==(const ImageFilePicture&) const = default;
};

enum class Symbology { Qr, DataMatrix, Aztec, Pdf417, Code128, Code39, Ean13 };

/// A barcode that is held before the camera for a while.
struct ShownCode {
  Symbology symbology = Symbology::Qr;
  QString text;
  QString file;                                         ///< absolute path of the image that an encoder made of it
  double from = 0;                                      ///< seconds since the camera was started
  double to = std::numeric_limits<double>::infinity();  ///< seconds since the camera was started

  bool operator==(const ShownCode&) const = default;
};

enum class BarcodeBackground { Desk, White, TestPattern };

/// A label with a barcode before a background, as a camera that is not perfect sees it.
struct BarcodePicture {
  std::vector<ShownCode> codes;  ///< at most one is in view: the last one whose time it is
  double size = 0.6;             ///< the label is fitted into this share of the frame's width and height
  double rotation = 0;           ///< degrees, clockwise
  double blur = 0;               ///< standard deviation, in pixels
  double noise = 0;              ///< standard deviation of the brightness, as a share of white
  double contrast = 1;           ///< 0: uniform grey
  BarcodeBackground background = BarcodeBackground::Desk;

  bool operator==(const BarcodePicture&) const = default;
};

/// What the camera looks at.
using PictureDescription = std::variant<TestPatternPicture, ImageFilePicture, BarcodePicture>;

enum class FaultKind {
  NoOpen,          ///< the device source cannot be created
  NotRgb32,        ///< the camera offers a format that nothing can convert
  FirstReadFails,  ///< opens, but every read fails: another program holds the camera
  Stall,           ///< no frames
  Tick,            ///< one stream tick in place of a frame
  EndOfStream,
  Removed,      ///< unplugged: the removal is broadcast and no more frames come
  Invalidated,  ///< unplugged: reads report that the device is gone
  Error,        ///< reads fail
  SizeChange,   ///< frames have another size from here on
};

struct Fault {
  FaultKind kind = FaultKind::NoOpen;
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
  Connection connection = Connection::Usb;
  SetupClass setupClass = SetupClass::Camera;
  QSize size;
  double framesPerSecond = 30;
  Stride stride = Stride::Positive;
  PictureDescription picture;
  std::vector<Fault> faults;  ///< in order of time

  [[nodiscard]] bool hasFault(FaultKind kind) const;

  bool operator==(const CameraDescription&) const = default;
};
