#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

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

/// How a frame's pixels are stored: four bytes each, or by brightness and colour difference, as most cameras deliver
/// them: YUY2 keeps the colour of each pair of pixels and NV12 that of each 2x2.
enum class PixelFormat { kRgb32, kYuy2, kNv12 };

struct TestPatternPicture {
  bool operator==(const TestPatternPicture&) const = default;
};

/// An image file, fitted into the frame.
struct ImageFilePicture {
  QString file;  ///< absolute path

  bool operator==(const ImageFilePicture&) const = default;
};

/// Image files that are shown one after the other, each fitted into the frame; after the last comes the first again.
struct ImageSequencePicture {
  QStringList files;   ///< absolute paths
  double seconds = 1;  ///< how long each is shown

  bool operator==(const ImageSequencePicture&) const = default;
};

enum class Symbology { kQr, kDataMatrix, kAztec, kPdf417, kCode128, kCode39, kEan13 };

/// A barcode that is held before the camera for a while.
struct ShownCode {
  Symbology symbology = Symbology::kQr;
  QString text;
  QString file;     ///< absolute path of the image that an encoder made of it; empty when none was made yet
  double from = 0;  ///< seconds since the camera was started
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
using PictureDescription = std::variant<TestPatternPicture, ImageFilePicture, ImageSequencePicture, BarcodePicture>;

enum class FaultKind {
  kNoOpen,          ///< the device source cannot be created
  kSlowOpen,        ///< creating the device source takes a while
  kBusy,            ///< the first attempts to create the device source fail
  kNotRgb32,        ///< the camera offers a format that nothing can convert
  kReadRefused,     ///< opens, but every call that asks for a frame fails at once
  kFirstReadFails,  ///< opens, but every read fails: another program holds the camera
  kSlowStop,        ///< stopping takes a while
  kStall,           ///< no frames
  kTick,            ///< one stream tick in place of a frame
  kDropped,         ///< some of the frames do not come
  kJitter,          ///< frames come late, each by another time
  kBlack,           ///< the picture is black
  kCovered,         ///< the picture is what a camera sees whose lens is covered
  kFrozen,          ///< the picture stands still
  kShort,           ///< buffers hold less than a frame
  kUnlockable,      ///< the next frame's buffer can be locked only at the second attempt
  kEndOfStream,
  kRemoved,       ///< unplugged: the removal is broadcast, the device is gone, no more frames come
  kReturns,       ///< plugged in again: the arrival is broadcast; the stream does not go on
  kOtherRemoved,  ///< the removal of another device is broadcast
  kInvalidated,   ///< reads report that the device is gone
  kError,         ///< reads fail
  kSizeChange,    ///< frames have another size from here on
};

/// What a kind of fault does not have keeps its default.
struct Fault {
  FaultKind kind = FaultKind::kNoOpen;
  double at = 0;                                              ///< seconds since the camera was started
  double duration = std::numeric_limits<double>::infinity();  ///< seconds
  QSize size = {};                                            ///< of the frames after a size change
  int times = 0;                                              ///< how many attempts fail
  double share = 0;     ///< of the frames that are dropped, or of a frame that a short buffer holds
  double lateness = 0;  ///< seconds by which a frame is late at most
  int seed = 1;         ///< of what is left to chance

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
  PixelFormat format = PixelFormat::kRgb32;
  Stride stride = Stride::kPositive;  ///< negative for RGB32 only
  PictureDescription picture;
  std::vector<Fault> faults;  ///< in order of time

  /// The first fault of a kind, or null.
  [[nodiscard]] const Fault* fault(FaultKind kind) const;

  bool operator==(const CameraDescription&) const = default;
};
