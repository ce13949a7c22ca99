#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>

#include <cstdint>
#include <optional>

#include "module/item_id.h"
#include "module/test.h"

/// A key of the module and the device's own value.
struct Property {
  QString key;
  QString value;
};

/// A camera as the last scan found it: a copy, which no rescan takes away.
struct Camera {
  /// Its number in the module's list, as the command line takes it.
  QString number;
  /// Names this camera from one scan to the next; empty where the module tells none.
  QString uniqueId;
  QString name;
  QList<Property> properties;

  /// What this host knows the camera by.
  const QString& identity() const { return uniqueId.isEmpty() ? number : uniqueId; }
};

/// What the module tells about one of its tests; names and descriptions are keys.
struct TestDescription {
  ItemId id;
  /// The test's words on the command line, and its diagnostic's.
  QString word;
  QString shortWord;
  QString diagnosticWord;
  QString diagnosticShortWord;
  QString name;
  QString description;
  QString diagnostic;
  bool isImplemented = true;
};

/// The versions of what took part in a run.
struct Versions {
  QString host;
  QString module;
  QString qt;
};

/// What made a run end.
enum class Ending { kItself, kUser, kHost, kEvent, kFault };

/// The names of the pictures of a run.
namespace picture_names {
inline constexpr char kMessage[] = "message";
inline constexpr char kQuestion[] = "question";
/// The test's own window a second after it opened, and as it closed.
inline constexpr char kDialog[] = "dialog";
inline constexpr char kDialogEnd[] = "dialog-end";
/// The last picture of the camera that this window was given: a barcode test shows it mirrored, and decodes it.
inline constexpr char kFrame[] = "frame";
}  // namespace picture_names

/// One run of one test on one camera: everything that reports are made from.
struct Run {
  struct Progress {
    int percent = 0;
    /// A key, a key and a value, or empty.
    QString text;
  };
  struct Request {
    /// InputRequest::kInitialMessage, kQuestion or kDialog.
    std::uint32_t kind = 0;
    QString title;
    QString text;
    std::uint32_t answer = 0;
  };
  /// A window of the test as the user saw it.
  struct Picture {
    QString name;
    QByteArray png;
    /// Where it is saved; empty while it is not.
    QString file;
  };

  /// Counts the runs of a session from 1.
  int number = 0;
  QDateTime start;
  QDateTime end;
  Versions versions;
  Camera camera;
  TestDescription test;
  /// The settings that the module was given, by the module's keys.
  QMap<QString, QString> settings;
  /// Whom the user named; empty where nobody did.
  QString operatorName;
  QString serialNumber;

  QList<Progress> progress;
  QList<QString> messages;
  QList<Request> requests;
  QList<Picture> pictures;
  /// None while the test runs.
  std::optional<TestResult> result;
  Ending ending = Ending::kItself;
  /// What this host has to say about the end, in the user's language; mostly nothing.
  QString remark;

  double seconds() const { return static_cast<double>(start.msecsTo(end)) / 1000.0; }
};

/// "passed", "failed" and so on: the word of reports, in no language; the number for a result that the contract does
/// not know.
QString resultWord(TestResult result);
/// "itself", "user", "host", "event", "fault".
QString endingWord(Ending ending);

/// A text of a device or of a file as a part of a file's name: letters, digits and hyphens.
QString fileWord(const QString& text);
/// CAMERA_TEST_DATE_WORD, fit for the name of a file on every system.
QString fileStem(const Run& run);
