#include "standalone/host/reports/junit_report.h"

#include <QCoreApplication>
#include <QXmlStreamWriter>

#include <algorithm>
#include <utility>

#include "standalone/host/key_texts.h"
#include "standalone/host/reports/allowed_text.h"
#include "standalone/host/run_texts.h"

namespace {

using Properties = QList<std::pair<QString, QString>>;

// The runs that share a camera and all that the properties of a suite say.
struct Suite {
  Properties properties;
  QList<Run> runs;
};

Properties propertiesOf(const Run& run) {
  Properties properties = {
      {"camera.id", run.camera.number}, {"camera.name", run.camera.name}, {"camera.uniqueId", run.camera.uniqueId}};
  for (const Property& property : run.camera.properties) properties.append({"camera." + property.key, property.value});
  for (auto entry = run.settings.begin(); entry != run.settings.end(); ++entry)
    properties.append({"setting." + entry.key(), entry.value()});
  properties += Properties{{"version.host", run.versions.host},
                           {"version.module", run.versions.module},
                           {"version.qt", run.versions.qt},
                           {"operator", run.operatorName},
                           {"serialNumber", run.serialNumber}};
  properties.removeIf([](const auto& property) { return property.second.isEmpty(); });
  return properties;
}

QList<Suite> suitesOf(const QList<Run>& runs) {
  QList<Suite> suites;
  for (const Run& run : runs) {
    const Properties properties = propertiesOf(run);
    const auto found = std::ranges::find(suites, properties, &Suite::properties);
    if (found == suites.end()) {
      suites.append({properties, {run}});
    } else {
      found->runs.append(run);
    }
  }
  return suites;
}

// The element that tells build servers about a result; none for a test that passed.
const char* outcomeElement(const Run& run) {
  switch (run.result.value_or(kTestError)) {
    case kTestPassed:
      return nullptr;
    case kTestFailed:
      return "failure";
    case kTestNotPerformed:
    case kTestCancelled:
    case kTestNotSupported:
      return "skipped";
    default:
      return "error";
  }
}

QStringList linesAbout(const Run& run) {
  QStringList lines;
  if (!run.remark.isEmpty()) lines.append(run.remark);
  for (const QString& message : run.messages) {
    lines.append(keyText(message));
    const QString advice = adviceText(message);
    if (!advice.isEmpty()) lines.append(advice);
  }
  return lines;
}

class Writer {
 public:
  QByteArray document(const QList<Run>& runs) {
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement("testsuites");
    writeAttribute("name", "module_host");
    writeCounts(runs);
    for (const Suite& suite : suitesOf(runs)) writeSuite(suite);
    xml.writeEndDocument();
    return content;
  }

 private:
  void writeSuite(const Suite& suite) {
    xml.writeStartElement("testsuite");
    writeAttribute("name", suite.runs.front().camera.name);
    writeCounts(suite.runs);
    writeAttribute("timestamp", suite.runs.front().start.toUTC().toString(Qt::ISODate));
    xml.writeStartElement("properties");
    for (const auto& [name, value] : suite.properties) {
      xml.writeEmptyElement("property");
      writeAttribute("name", name);
      writeAttribute("value", value);
    }
    xml.writeEndElement();
    for (const Run& run : suite.runs) writeCase(run);
    xml.writeEndElement();
  }

  void writeCounts(const QList<Run>& runs) {
    const auto count = [&](QLatin1String element) {
      return QString::number(
          std::ranges::count_if(runs, [&](const Run& run) { return QLatin1String(outcomeElement(run)) == element; }));
    };
    qint64 milliseconds = 0;
    for (const Run& run : runs) milliseconds += run.start.msecsTo(run.end);
    writeAttribute("tests", QString::number(runs.size()));
    writeAttribute("failures", count(QLatin1String("failure")));
    writeAttribute("errors", count(QLatin1String("error")));
    writeAttribute("skipped", count(QLatin1String("skipped")));
    writeAttribute("time", QString::number(static_cast<double>(milliseconds) / 1000.0, 'f', 3));
  }

  void writeCase(const Run& run) {
    xml.writeStartElement("testcase");
    // Readers take what stands before the last dot for a package.
    const QString camera = QString(run.camera.name).replace(QLatin1Char('.'), QLatin1Char('_'));
    writeAttribute("classname", keyText(run.test.diagnostic) + QLatin1Char('.') + camera);
    writeAttribute("name", keyText(run.test.name));
    writeAttribute("time", QString::number(run.seconds(), 'f', 3));
    writeOutcome(run);
    writeOutput(run);
    xml.writeEndElement();
  }

  void writeOutcome(const Run& run) {
    const char* element = outcomeElement(run);
    if (!element) return;
    const QString cause = causeText(run);
    xml.writeStartElement(element);
    writeAttribute("message", cause.isEmpty() ? verdictText(run) : cause);
    writeAttribute("type", resultWord(run.result.value_or(kTestError)));
    // Some show this and not the output, some not even the message.
    writeText(linesAbout(run));
    xml.writeEndElement();
  }

  void writeOutput(const Run& run) {
    QStringList lines = linesAbout(run);
    for (const Run::Picture& picture : run.pictures)
      if (!picture.file.isEmpty()) lines.append(QStringLiteral("[[ATTACHMENT|%1]]").arg(picture.file));
    if (lines.isEmpty()) return;
    xml.writeStartElement("system-out");
    writeText(lines);
    xml.writeEndElement();
  }

  void writeText(const QStringList& lines) { xml.writeCharacters(allowedText(lines.join(QLatin1Char('\n')))); }
  void writeAttribute(const char* name, const QString& value) { xml.writeAttribute(name, allowedText(value)); }

  QByteArray content;
  QXmlStreamWriter xml{&content};
};

}  // namespace

QByteArray junitReport(const QList<Run>& runs) {
  return Writer().document(runs);
}
