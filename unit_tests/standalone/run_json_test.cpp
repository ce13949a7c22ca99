#include "standalone/host/reports/run_json.h"

#include <QStringConverter>

#include <string>

#include <gmock/gmock.h>

#include "standalone/host/host_error.h"
#include "unit_tests/standalone/report_fixture.h"

using testing::HasSubstr;

namespace {

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

}  // namespace
