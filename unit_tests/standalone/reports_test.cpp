#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QStringConverter>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "module/module_interface.h"
#include "module/resource.h"
#include "standalone/host/host_error.h"
#include "standalone/host/reports/html_report.h"
#include "standalone/host/reports/junit_report.h"
#include "standalone/host/reports/report_files.h"
#include "standalone/host/reports/run_json.h"
#include "standalone/host/session/session.h"
#include "ui/input_request.h"

#ifdef __linux__
#include <sys/resource.h>

#include <csignal>
#endif

using testing::HasSubstr;
using testing::Not;

namespace {

// GoogleTest's own Run hides the other one in a test.
using Record = Run;

/// Knows one text and one advice; the rest stays as it is.
class Translator : public QTranslator {
 public:
  Translator() { QCoreApplication::installTranslator(this); }
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
  const Translator translator;
};

QByteArray png(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  EXPECT_TRUE(image.save(&buffer, "PNG"));
  return bytes;
}

/// A run with everything in it.
Run fullRun() {
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

constexpr char kFullLine[] =
    R"({"camera":{"id":"0","name":"A <b>&\"C\" 1.3","properties":[{"key":"CAMERA_TYPE","name":"CAMERA_TYPE",)"
    R"("value":"USB 'x'"}],"uniqueId":"usb#1"},"end":"2026-03-01T14:05:11.595+01:00",)"
    R"("ending":{"by":"host","remark":"It was so."},"messages":["FAILED_TO_CAPTURE","HINT: PART"],"operator":"Ann",)"
    R"("pictures":[],"progress":[{"percent":30,"text":""},{"percent":100,"text":"FAILED_TO_CAPTURE"}],)"
    R"("requests":[{"answer":1,"kind":"message","text":"READY","title":"TITLE"},{"kind":"dialog"},)"
    R"({"answer":4,"kind":"question","text":"GOOD","title":"TITLE"}],"result":1,"run":7,"schemaVersion":1,)"
    R"("seconds":2.345,"serialNumber":"S-1","settings":{"LIMIT ä":"5"},"start":"2026-03-01T14:05:09.250+01:00",)"
    R"("test":"CAMERA_CAPTURE_TEST","testInfo":{"diagnostic":"QUICK_CAMERA","name":"CAMERA_CAPTURE_TEST",)"
    R"("word":"capture"},"texts":["No picture came.","HINT: PART"],)"
    R"("versions":{"host":"1.2","module":"3.4","qt":"6.4"},"word":"failed"})";

TEST_F(ReportsTest, ARecordIsReadAsItWasWritten) {
  Record plain = fullRun();
  plain.operatorName = plain.serialNumber = plain.remark = QString();
  plain.start = plain.start.toLocalTime();
  QByteArray written = jsonLine(plain, nullptr);
  for (const char* field : {"operator", "serialNumber", "remark"}) EXPECT_FALSE(written.contains(field)) << field;
  EXPECT_EQ(jsonLine(fullRun(), nullptr), QByteArray(kFullLine) + '\n');

  Record run = fullRun();
  for (const TestResult result : {0, 1, 3, 4, 5, 6})
    for (int ending = 0; ending <= static_cast<int>(Ending::kFault); ++ending) {
      run.result = result;
      run.ending = static_cast<Ending>(ending);
      written += jsonLine(run, nullptr);
    }
  const QList<Record> runs = readRuns(write("record.json", written));
  ASSERT_EQ(runs.size(), 31);
  EXPECT_EQ(runs[0].start, plain.start);
  QByteArray again;
  for (const Record& each : runs) again += jsonLine(each, nullptr);
  EXPECT_EQ(again.mid(again.indexOf('\n')), written.mid(written.indexOf('\n')));
  EXPECT_EQ(runs.back().settings, run.settings);
}

TEST_F(ReportsTest, ARecordNamesItsPicturesFromItsFolder) {
  const QTemporaryDir elsewhere;
  place.mkdir("in");
  Record run = fullRun();
  run.pictures = {{"near", "", write("in/a b.png", "near")},
                  {"unsaved", "x", ""},
                  {"far", "", elsewhere.filePath("far.png")},
                  {"folder", "", path("in")},
                  {"dots", "", write("..dots.png", "dots")}};
  const QString record = write("record.json", jsonLine(run, &place));

  const QList<Record::Picture> read = readRuns(record)[0].pictures;
  ASSERT_EQ(read.size(), 4) << "those that are saved";
  const char* contents[] = {"near", "", "", "dots"};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(read[i].file, run.pictures[i == 0 ? 0 : i + 1].file);
    EXPECT_EQ(read[i].png, contents[i]) << i;
  }
  const std::string line = content("record.json").toStdString();
  EXPECT_THAT(line, HasSubstr(R"("file":"in/a b.png","name":"near")"));
  EXPECT_THAT(line, HasSubstr("\"file\":\"" + elsewhere.filePath("far.png").toStdString() + '"'));
  EXPECT_THAT(line, HasSubstr(R"("file":"..dots.png")"));
  EXPECT_THAT(jsonLine(run, nullptr).toStdString(), HasSubstr("\"file\":\"" + path("in/a b.png").toStdString() + '"'));
}

TEST_F(ReportsTest, ARecordMayHaveGoneThroughOtherPrograms) {
  const QByteArray line = kFullLine;
  const QString text = QString::fromUtf8(line);
  QByteArray spread = QByteArray(line).replace(",\"", ",\r\n \"").replace("{\"", "{\n\"");
  const std::pair<QByteArray, int> records[] = {
      {line, 1},
      {"\n" + line + "\r\n\r\n" + line + "\r\n", 2},
      {spread, 1},
      {"\xEF\xBB\xBF" + line, 1},
      {QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom)(text), 1},
      {QByteArray(line).replace("\"by\"", "\"later\":[1],\"by\""), 1},
      {"", 0},
  };
  for (const auto& [record, count] : records) {
    const QList<Record> runs = readRuns(write("record.json", record));
    ASSERT_EQ(runs.size(), count) << record.toStdString();
    for (const Record& run : runs) EXPECT_EQ(jsonLine(run, nullptr), line + '\n');
  }
}

TEST_F(ReportsTest, AWrongRecordIsRefusedWithItsLineAndFault) {
  struct Fault {
    const char* right;
    const char* wrong;
    const char* sentence;
  };
  constexpr Fault kFaults[] = {
      {"{\"camera", "{camera", "line 2: This is not JSON: "},
      {"failed\"}\n", "failed\"\n", "This is not JSON"},
      {"\"schemaVersion\":1", "\"schemaVersion\":2", "The record has the form 2; this program reads the form 1."},
      {"\"schemaVersion\":1", "\"x\":1", "\"schemaVersion\" is missing; it must be a whole number"},
      {"\"run\":7", "\"run\":7.5", "\"run\" must be a whole number from -2147483648 to 2147483647."},
      {"\"run\":7", "\"run\":\"7\"", "\"run\" must be a whole number"},
      {"\"run\":7", "\"run\":3e9", "\"run\" must be a whole number"},
      {"\"answer\":4", "\"answer\":-4", "\"requests[2].answer\" must be a whole number from 0 to 4294967295."},
      {"14:05:09.250+01:00", "14:05:09.250", "\"start\" must be a time such as 2026-"},
      {"14:05:11", "25:05:11", "\"end\" must be a time such as 2026-"},
      {"\"id\":\"0\"", "\"id\":0", "\"camera.id\" must be a text."},
      {"\"uniqueId\"", "\"unique\"", "\"camera.uniqueId\" is missing; it must be a text."},
      {"\"value\":\"USB 'x'\"", "\"value\":null", "\"camera.properties[0].value\" must be a text."},
      {"\"pictures\":[]", "\"pictures\":[[]]", "\"pictures\" must be a list of objects."},
      {"\"pictures\":[]", "\"pictures\":{}", "\"pictures\" must be a list."},
      {"\"HINT: PART\"],\"operator", "1],\"operator", "\"messages\" must be a list of texts."},
      {"\"operator\":\"Ann\"", "\"operator\":false", "\"operator\" must be a text."},
      {"\"settings\":{\"LIMIT ä\":\"5\"}", "\"settings\":{\"a\":5}", "\"settings.a\" must be a text."},
      {"\"versions\":{", "\"versions\":[],\"x\":{", "\"versions\" must be an object."},
      {"\"kind\":\"dialog\"", "\"kind\":\"window\"", "\"requests[1].kind\" must be one of: message, question, dialog."},
      {"\"by\":\"host\"", "\"by\":\"me\"", "\"ending.by\" must be one of: itself, user, host, event, fault."},
      {"\"word\":\"failed\"", "\"word\":\"good\"", "\"word\" must be one of: passed, failed, not performed, cancelled"},
      {"\"result\":1", "\"result\":0", "\"result\" must be 1, which is \"failed\"."},
  };
  const auto refusal = [this](const QByteArray& text) -> std::string {
    try {
      readRuns(write("record.json", text));
    } catch (const HostError& error) {
      return error.what();
    }
    return "nothing was refused";
  };
  const QByteArray line = QByteArray(kFullLine) + '\n';
  for (const Fault& fault : kFaults) {
    QByteArray wrong = line;
    const std::string sentence = refusal(line + wrong.replace(fault.right, fault.wrong));
    EXPECT_THAT(sentence, HasSubstr("record.json, line 2: ")) << fault.wrong;
    EXPECT_THAT(sentence, HasSubstr(fault.sentence));
  }
  EXPECT_THAT(refusal(line + "\n \r\n" + "{}\n"), HasSubstr("record.json, line 4: "));
  EXPECT_THAT(refusal("[1]"), HasSubstr("line 1: A record is an object"));
  EXPECT_THROW(readRuns(path("none.json")), HostError);
}

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

/// A module that has a name, and nothing else.
class Names : public Resource {
 public:
  Names() : Resource({}) {}
  std::string diagnosticNameKey(const ItemId&) override { return {}; }
  std::string testNameKey(const ItemId&) override { return {}; }
  std::string diagnosticDescriptionKey(const ItemId&) override { return {}; }
  std::string testDescriptionKey(const ItemId&) override { return {}; }
};

class ReportFilesTest : public ReportsTest {
 protected:
  /// A run on a camera that is gone, which is not performed.
  void run() {
    session.start({{fullRun().camera, fullRun().test}});
    session.waitUntilIdle();
  }
  QStringList files() const { return place.entryList(QDir::Files | QDir::Hidden); }
  ReportWishes wishes() const { return {path("r.json"), path("r.html"), path("r.xml"), path("each")}; }

  Names names;
  Session session{
      std::make_shared<ModuleInterface>(std::vector<Diagnostic*>(), &names, nullptr, nullptr), {}, {}, nullptr};
};

TEST_F(ReportFilesTest, EveryRunIsWrittenDownAndCanBeReadAgain) {
  const ReportFiles reports(session, wishes());
  EXPECT_THAT(content("r.html").toStdString(), HasSubstr("No test has run yet."));
  EXPECT_THAT(content("r.xml").toStdString(), HasSubstr("tests=\"0\""));
  for (int count = 1; count <= 2; ++count) {
    run();
    EXPECT_EQ(readRuns(path("r.json")).size(), count);
    EXPECT_EQ(content("r.html").count("<article"), count);
    EXPECT_EQ(content("r.xml").count("<testcase"), count);
    EXPECT_EQ(QDir(path("each")).entryList({"*_capture_*_not-performed*.html"}).size(), count);
    EXPECT_EQ(QDir(path("each")).entryList({"*_capture_*_not-performed*.json"}).size(), count);
  }
  EXPECT_FALSE(reports.hasFailed());

  convertReport(path("r.json"), {path("c.json"), path("c.html"), path("c.xml"), {}});
  for (const QString suffix : {"json", "html", "xml"}) EXPECT_EQ(content("c." + suffix), content("r." + suffix));
}

TEST_F(ReportFilesTest, ALongRowOfRunsIsWrittenWholeInTheEnd) {
  const ReportFiles reports(session, wishes());
  QObject::connect(&session, &Session::runFinished, [this](const Record& run) {
    EXPECT_TRUE(run.number > 10 || content("r.html").count("<article") == run.number);
  });
  session.start(QList<Job>(30, {fullRun().camera, fullRun().test}));
  session.waitUntilIdle();
  EXPECT_EQ(readRuns(path("r.json")).size(), 30);
  EXPECT_EQ(content("r.html").count("<article"), 30);
  EXPECT_EQ(content("r.xml").count("<testcase"), 30);
}

TEST_F(ReportFilesTest, NoFileIsOverwrittenAndNoneIsLeftForNothing) {
  write("r.xml", "mine");
  EXPECT_THROW(ReportFiles(session, wishes()), HostError);
  EXPECT_EQ(files(), QStringList("r.xml"));
  EXPECT_EQ(content("r.xml"), "mine");
  const QString record = write("record.json", jsonLine(fullRun(), nullptr));
  EXPECT_THROW(convertReport(record, wishes()), HostError);
  EXPECT_THROW(convertReport(record, {record, {}, {}, {}}), HostError);
  EXPECT_THROW(writeReport(record, "x"), HostError);
  EXPECT_EQ(files(), QStringList({"r.xml", "record.json"}));
  EXPECT_EQ(readRuns(record).size(), 1);
  writeReport(path("new.txt"), "new");
  EXPECT_EQ(content("new.txt"), "new");
}

#ifdef __linux__
TEST_F(ReportFilesTest, AFullDiskIsToldAndLeavesWhatWasThere) {
  ReportFiles reports(session, wishes());
  run();
  const QByteArray json = content("r.json");
  const QByteArray html = content("r.html");
  std::vector<std::string> told;
  QObject::connect(&reports, &ReportFiles::failed, [&](const QString& text) { told.push_back(text.toStdString()); });

  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{static_cast<rlim_t>(json.size() + 10), before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  run();
  setrlimit(RLIMIT_FSIZE, &before);

  EXPECT_TRUE(reports.hasFailed());
  EXPECT_THAT(told, testing::ElementsAre(HasSubstr("r.json could not be written: File too large"), HasSubstr("each"),
                                         HasSubstr("r.html could not be written: File too large"),
                                         HasSubstr("r.xml could not be written: File too large")));
  EXPECT_EQ(files(), QStringList({"r.html", "r.json", "r.xml"})) << "and nothing that is left of the attempt";
  EXPECT_EQ(content("r.json"), json);
  EXPECT_EQ(content("r.html"), html);
  run();
  EXPECT_EQ(readRuns(path("r.json")).size(), 2);
}
#endif

}  // namespace
