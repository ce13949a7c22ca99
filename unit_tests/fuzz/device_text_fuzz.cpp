// Texts of devices and modules, whatever they hold: every report stays well-formed, and none of them becomes a part of
// it.

#include <QJsonDocument>
#include <QXmlStreamReader>

#include "standalone/host/reports/html_report.h"
#include "standalone/host/reports/junit_report.h"
#include "standalone/host/reports/run_json.h"
#include "unit_tests/fuzz/fuzzer.h"

namespace {

// A run with the text wherever one comes from outside.
Run runWith(const QString& text) {
  Run run;
  run.start = QDateTime({2026, 3, 1}, {14, 5, 9}, Qt::UTC);
  run.end = run.start.addSecs(3);
  run.camera = {text, text, text, {{text, text}}};
  run.test.word = QStringLiteral("capture");
  run.test.name = text;
  run.test.diagnostic = text;
  run.versions.module = text;
  run.operatorName = text;
  run.serialNumber = text;
  run.progress = {{30, text}};
  run.messages = {text};
  run.result = kTestError;
  run.remark = text;
  return run;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Half of a pair of surrogates may stand alone.
  const QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(data), static_cast<qsizetype>(size / 2));
  const Run run = runWith(text);

  const QByteArray page = htmlReport({run}, QStringLiteral("en"));
  // A key may be told beside its text. What got through unescaped would do so in a dozen places.
  static const auto kMost = htmlReport({runWith(QStringLiteral("x"))}, QStringLiteral("en")).count('<') + 8;
  require(page.count('<') <= kMost, "no text makes an element of the page");

  QXmlStreamReader reader(junitReport({run}));
  while (!reader.atEnd()) reader.readNext();
  require(!reader.hasError(), "the XML is well-formed");

  const QByteArray line = jsonLine(run, nullptr);
  require(line.count('\n') == 1 && line.endsWith('\n'), "a record is one line");
  const QJsonObject record = QJsonDocument::fromJson(line).object();
  const QString name = record[QLatin1String("camera")][QLatin1String("name")].toString();
  require(name.size() == text.size(), "the record has the camera's name");
  return 0;
}
