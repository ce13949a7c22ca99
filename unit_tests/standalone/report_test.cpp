#include "standalone/host/report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "ui/input_request.h"

namespace {

TEST(ReportTest, IsOneLineThatHoldsEverythingTheTestLeft) {
  TestReport report;
  report.cameraId = "3";
  report.cameraName = "Kamera \xc3\x84\n\"2\"";
  report.testKey = "CAMERA_CAPTURE_TEST";
  report.result = kTestFailed;
  report.messages = {"A", "B C"};
  report.progress = {{0, ""}, {100, "A"}};
  report.requests = {{"T", "M", InputRequest::kInitialMessage, 1},
                     {"", "", InputRequest::kDialog, 0},
                     {"T", "Q", InputRequest::kQuestion, 4}};
  report.seconds = 1.5;

  const QByteArray line = jsonLine(report);
  EXPECT_EQ(line.indexOf('\n'), line.size() - 1);
  const QByteArray expected = R"({
    "camera": {"id": "3", "name": "Kamera Ä\n\"2\""}, "test": "CAMERA_CAPTURE_TEST", "result": 1, "word": "failed",
    "messages": ["A", "B C"], "texts": ["A", "B C"],
    "progress": [{"percent": 0, "text": ""}, {"percent": 100, "text": "A"}],
    "requests": [{"kind": "message", "title": "T", "text": "M", "answer": 1}, {"kind": "dialog"},
                 {"kind": "question", "title": "T", "text": "Q", "answer": 4}],
    "seconds": 1.5})";
  EXPECT_EQ(QJsonDocument::fromJson(line), QJsonDocument::fromJson(expected)) << line.toStdString();
}

TEST(ReportTest, ExitCodeTellsFailuresFirst) {
  const auto code = [](std::initializer_list<TestResult> results) {
    std::vector<TestReport> reports;
    for (const TestResult result : results) {
      reports.emplace_back().result = result;
    }
    return exitCode(reports);
  };
  EXPECT_EQ(code({}), 0);
  EXPECT_EQ(code({kTestPassed, kTestPassed}), 0);
  EXPECT_EQ(code({kTestPassed, kTestFailed, kTestCancelled}), 1);
  for (const TestResult result : {kTestNotPerformed, kTestCancelled, kTestError, kTestNotSupported, TestResult{99}}) {
    EXPECT_EQ(code({kTestPassed, result}), 3) << result;
  }
}

}  // namespace
