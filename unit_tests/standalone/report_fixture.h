#pragma once

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTranslator>

#include <gtest/gtest.h>

#include "standalone/host/session/run.h"
#include "ui/input_request.h"

// What the tests of the reports share.

// GoogleTest's own Run hides the other one in a test.
using Record = Run;

/// Knows one text and one advice; the rest stays as it is.
class ReportTranslator : public QTranslator {
 public:
  ReportTranslator() { QCoreApplication::installTranslator(this); }
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char*, int) const override {
    const QString key = QLatin1String(context) + QLatin1Char('/') + QLatin1String(source);
    if (key == "CAMERA/FAILED_TO_CAPTURE") return "No picture came.";
    if (key == "ADVICE/FAILED_TO_CAPTURE") return "Try another socket.";
    return {};
  }
};

class ReportsTest : public testing::Test {
 protected:
  QString path(const QString& name) const { return folder.filePath(name); }
  QByteArray content(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  }
  QString write(const QString& name, const QByteArray& text) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    return file.fileName();
  }

  const QTemporaryDir folder;
  const QDir place{folder.path()};
  const ReportTranslator translator;
};

inline QByteArray png(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  EXPECT_TRUE(image.save(&buffer, "PNG"));
  return bytes;
}

/// A run with everything in it.
inline Run fullRun() {
  Run run;
  run.number = 7;
  run.start = QDateTime({2026, 3, 1}, {14, 5, 9, 250}, Qt::OffsetFromUTC, 3600);
  run.end = run.start.addMSecs(2345);
  run.versions = {"1.2", "3.4", "6.4"};
  run.camera = {"0", "usb#1", "A <b>&\"C\" 1.3", {{"CAMERA_TYPE", "USB 'x'"}}};
  run.test.word = "capture";
  run.test.name = "CAMERA_CAPTURE_TEST";
  run.test.diagnostic = "QUICK_CAMERA";
  run.settings = {{"LIMIT \u00e4", "5"}};
  run.operatorName = "Ann";
  run.serialNumber = "S-1";
  run.progress = {{30, ""}, {100, "FAILED_TO_CAPTURE"}};
  run.messages = {"FAILED_TO_CAPTURE", "HINT: PART"};
  run.requests = {{InputRequest::kInitialMessage, "TITLE", "READY", InputRequest::kConfirmed},
                  {InputRequest::kDialog, "", "", 0},
                  {InputRequest::kQuestion, "TITLE", "GOOD", InputRequest::kNo}};
  run.result = kTestFailed;
  run.ending = Ending::kHost;
  run.remark = "It was so.";
  return run;
}
