// The page for people and the file for build servers.

#include <QXmlStreamReader>

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "standalone/host/reports/html_report.h"
#include "standalone/host/reports/junit_report.h"
#include "unit_tests/standalone/report_fixture.h"

using testing::HasSubstr;

namespace {

/// The text of a page, with that of its attributes.
std::string pageText(const QByteArray& page) {
  QXmlStreamReader reader(page);
  QString text;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isCharacters()) text += reader.text();
    for (const QXmlStreamAttribute& attribute : reader.attributes())
      if (reader.isStartElement()) text += QStringLiteral("[%1]").arg(attribute.value());
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  return text.toStdString();
}

TEST_F(ReportsTest, APageSaysEverythingInWordsAndNeedsNothingElse) {
  Record run = fullRun();
  run.pictures = {{"wide", png(1280, 720), ""}, {"small <", png(64, 48), ""}, {"gone", "", "x.png"}};
  Record other = fullRun();
  other.number = 8;
  other.result = kTestPassed;
  other.camera.name = QString::fromUtf16(u"bell\a \xD800 \xFFFF end");
  const QByteArray page = htmlReport({run, other}, "de");
  const std::string text = pageText(page);
  for (const char* said : {"[de]",
                           "Passed: 1, Failed: 1",
                           "All runs",
                           "A <b>&\"C\" 1.3: CAMERA_CAPTURE_TEST",
                           "It was so.",
                           "No picture came.",
                           "Try another socket.",
                           "HINT: PART",
                           "QUICK_CAMERA",
                           "2026-03-01 14:05:09 UTC+01:00",
                           "2,3 s",
                           "this program",
                           "Ann",
                           "S-1",
                           "LIMIT \u00e4",
                           "USB 'x'",
                           "program 1.2, module 3.4, Qt 6.4",
                           "READY",
                           "Answer: Confirmed",
                           "GOOD",
                           "Answer: No",
                           "[640][360][CAMERA_CAPTURE_TEST: wide]",
                           "[64][48][CAMERA_CAPTURE_TEST: small <]",
                           "The picture gone is not there.",
                           "bell\uFFFD \uFFFD \uFFFD end"})
    EXPECT_THAT(text, HasSubstr(said));
  EXPECT_EQ(page.count("<li>"), 4) << "what was asked, not the test's own window";
  for (const char* link : {"<script", "http:", "https:", "url(", "<link"}) EXPECT_FALSE(page.contains(link)) << link;
  EXPECT_THAT(pageText(htmlReport({}, "en")), HasSubstr("No test has run yet."));
}

/// The elements of a document, each with its attributes and its text.
std::vector<std::string> elements(const QByteArray& document) {
  QXmlStreamReader reader(document);
  std::vector<std::string> all;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartElement()) {
      QString line = reader.name().toString();
      for (const QXmlStreamAttribute& attribute : reader.attributes())
        line += QStringLiteral(" %1=%2").arg(attribute.name(), attribute.value());
      all.push_back(line.toStdString());
    } else if (reader.isCharacters() && !reader.isWhitespace()) {
      all.back() += ": " + reader.text().toString().toStdString();
    }
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  return all;
}

TEST_F(ReportsTest, ABuildServerIsToldEachResultWithItsCause) {
  QList<Record> runs;
  for (const TestResult result : {0, 1, 3, 4, 5, 6}) {
    runs.append(fullRun());
    runs.back().result = result;
    runs.back().remark.clear();
    if (result != kTestFailed) runs.back().messages.clear();
  }
  runs[0].pictures = {{"seen", "", "/tmp/seen.png"}, {"unsaved", "", ""}};
  runs.append(runs[0]);
  runs.back().camera.name = QString::fromUtf16(u"other\a \xD800 <");
  const std::string testCase = "testcase classname=QUICK_CAMERA.A <b>&\"C\" 1_3 name=CAMERA_CAPTURE_TEST time=2.345";
  const std::string properties[] = {"properties",
                                    "property name=camera.id value=0",
                                    "property name=camera.name value=A <b>&\"C\" 1.3",
                                    "property name=camera.uniqueId value=usb#1",
                                    "property name=camera.CAMERA_TYPE value=USB 'x'",
                                    "property name=setting.LIMIT \u00e4 value=5",
                                    "property name=version.host value=1.2",
                                    "property name=version.module value=3.4",
                                    "property name=version.qt value=6.4",
                                    "property name=operator value=Ann",
                                    "property name=serialNumber value=S-1"};
  std::vector<std::string> expected = {"testsuites name=module_host tests=7 failures=1 errors=1 skipped=3 time=16.415",
                                       "testsuite name=A <b>&\"C\" 1.3 tests=6 failures=1 errors=1 skipped=3 "
                                       "time=14.070 timestamp=2026-03-01T13:05:09Z"};
  expected.insert(expected.end(), std::begin(properties), std::end(properties));
  const std::string lines = "No picture came.\nTry another socket.\nHINT: PART";
  const std::string ended = "The program ended the test.";
  for (const std::string& line :
       {testCase, std::string("system-out: [[ATTACHMENT|/tmp/seen.png]]"), testCase,
        "failure message=No picture came. type=failed: " + lines, "system-out: " + lines, testCase,
        "skipped message=" + ended + " type=not performed", testCase, "skipped message=" + ended + " type=cancelled",
        testCase, "error message=" + ended + " type=error", testCase,
        "skipped message=" + ended + " type=not supported"})
    expected.push_back(line);
  std::vector<std::string> written = elements(junitReport(runs));
  ASSERT_GT(written.size(), expected.size());
  EXPECT_EQ(written[expected.size()],
            "testsuite name=other\uFFFD \uFFFD < tests=1 failures=0 errors=0 skipped=0 time=2.345 "
            "timestamp=2026-03-01T13:05:09Z");
  written.resize(expected.size());
  EXPECT_EQ(written, expected);
}

}  // namespace
