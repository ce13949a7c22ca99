#include "standalone/host/report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

#include "standalone/host/key_texts.h"
#include "ui/input_request.h"

namespace {

QJsonObject json(const TestReport::Progress& progress) {
  return {{"percent", progress.percent}, {"text", QString::fromStdString(progress.text)}};
}

QJsonObject json(const TestReport::Request& request) {
  if (request.kind == InputRequest::kDialog) {
    return {{"kind", "dialog"}};
  }
  return {{"kind", request.kind == InputRequest::kQuestion ? "question" : "message"},
          {"title", QString::fromStdString(request.title)},
          {"text", QString::fromStdString(request.text)},
          {"answer", static_cast<qint64>(request.answer)}};
}

template <class Entry>
QJsonArray jsonList(const std::vector<Entry>& entries) {
  QJsonArray array;
  for (const Entry& entry : entries) {
    array.append(json(entry));
  }
  return array;
}

}  // namespace

QString resultWord(TestResult result) {
  switch (result) {
    case kTestPassed:
      return QStringLiteral("passed");
    case kTestFailed:
      return QStringLiteral("failed");
    case kTestNotPerformed:
      return QStringLiteral("not performed");
    case kTestCancelled:
      return QStringLiteral("cancelled");
    case kTestError:
      return QStringLiteral("error");
    case kTestNotSupported:
      return QStringLiteral("not supported");
    default:
      return QString::number(result);
  }
}

QByteArray jsonLine(const TestReport& report) {
  QJsonArray messages;
  QJsonArray texts;
  for (const std::string& message : report.messages) {
    messages.append(QString::fromStdString(message));
    texts.append(keyText(message));
  }
  const QJsonObject camera = {{"id", QString::fromStdString(report.cameraId)},
                              {"name", QString::fromStdString(report.cameraName)}};
  const QJsonObject line = {{"camera", camera},
                            {"test", QString::fromStdString(report.testKey)},
                            {"result", static_cast<qint64>(report.result)},
                            {"word", resultWord(report.result)},
                            {"messages", messages},
                            {"texts", texts},
                            {"progress", jsonList(report.progress)},
                            {"requests", jsonList(report.requests)},
                            {"seconds", report.seconds}};
  return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

int exitCode(const std::vector<TestReport>& reports) {
  const auto hasResult = [](TestResult result) {
    return [result](const TestReport& report) { return report.result == result; };
  };
  if (std::ranges::any_of(reports, hasResult(kTestFailed))) {
    return 1;
  }
  return std::ranges::all_of(reports, hasResult(kTestPassed)) ? 0 : kNotAllPassed;
}
