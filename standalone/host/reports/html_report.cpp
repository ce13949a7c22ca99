#include "standalone/host/reports/html_report.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>
#include <QLocale>

#include <algorithm>
#include <array>

#include "module/keys/settings_keys.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/reports/allowed_text.h"
#include "standalone/host/reports/html_style.h"
#include "standalone/host/run_texts.h"
#include "ui/input_request.h"

namespace {

constexpr int kWidestPicture = 640;

// What a verdict looks like, beside its word: a class of the style, and a shape of its own on 24 x 24.
struct Look {
  TestResult result;
  const char* tone;
  const char* icon;
};
constexpr std::array kLooks = {
    Look{kTestPassed, "passed", R"(<circle cx="12" cy="12" r="10"/><path d="M7 12.5l3.5 3.5L17 9"/>)"},
    Look{kTestFailed, "failed", R"(<path d="M8 2h8l6 6v8l-6 6H8l-6-6V8zM9 9l6 6M15 9l-6 6"/>)"},
    Look{kTestNotPerformed, "quiet", R"(<circle cx="12" cy="12" r="10"/><path d="M7 12h10"/>)"},
    Look{kTestCancelled, "warned", R"(<circle cx="12" cy="12" r="10"/><path d="M9 9h6v6H9z"/>)"},
    Look{kTestNotSupported, "quiet", R"(<circle cx="12" cy="12" r="10"/><path d="M5 5l14 14"/>)"},
    Look{kTestError, "failed", R"(<path d="M12 3L2 21h20zM12 10v5M12 17v1.5"/>)"},
};

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(HtmlReport)
};

// Every text of a page comes through here, as a content or as the value of an attribute.
QString escaped(const QString& text) {
  return allowedText(text).toHtmlEscaped();
}

// `content` is HTML already.
QString element(const char* start, const QString& content) {
  const QString opening = QLatin1String(start);
  return QStringLiteral("<%1>%2</%3>\n").arg(opening, content, opening.section(QLatin1Char(' '), 0, 0));
}

QString timeElement(const QDateTime& time) {
  const QDateTime there = time.toOffsetFromUtc(time.offsetFromUtc());
  return QStringLiteral("<time datetime=\"%1\">%2</time>")
      .arg(there.toString(Qt::ISODateWithMs), there.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss t")));
}

QString verdictElement(const Run& run) {
  const auto* look = std::ranges::find(kLooks, run.result.value_or(kTestError), &Look::result);
  return QStringLiteral("<span class=\"word %1\"><svg viewBox=\"0 0 24 24\" aria-hidden=\"true\">%2</svg>%3</span>")
      .arg(QLatin1String(look->tone), QLatin1String(look->icon), escaped(verdictText(run)));
}

QString answerText(std::uint32_t answer) {
  switch (answer) {
    case InputRequest::kConfirmed:
      return Texts::tr("Confirmed");
    case InputRequest::kYes:
      return Texts::tr("Yes");
    case InputRequest::kNo:
      return Texts::tr("No");
    case InputRequest::kOverriddenByEvent:
      return Texts::tr("Ended by an event of the system");
    default:
      return Texts::tr("Not answered");
  }
}

QString endingText(Ending ending) {
  switch (ending) {
    case Ending::kItself:
      return Texts::tr("the test itself");
    case Ending::kUser:
      return Texts::tr("the user");
    case Ending::kHost:
      return Texts::tr("this program");
    case Ending::kEvent:
      return Texts::tr("an event of the system");
    case Ending::kFault:
      break;
  }
  return Texts::tr("a fault of the module");
}

QString settingText(const QString& key) {
  if (key == QLatin1String(settings_keys::kOrcaTestTimeoutCameraCaptureTest))
    return Texts::tr("Time for the picture, in seconds");
  return Texts::tr("Setting %1").arg(key);
}

// Terms with what they are, in order.
class Facts {
 public:
  void add(const QString& term, const QString& fact) {
    if (!fact.isEmpty()) addHtml(term, escaped(fact));
  }
  void addHtml(const QString& term, const QString& fact) { rows += element("dt", escaped(term)) + element("dd", fact); }
  QString html() const { return element("dl", rows); }

 private:
  QString rows;
};

QString secondsText(const Run& run, const QString& language) {
  return Texts::tr("%1 s").arg(QLocale(language).toString(run.seconds(), 'f', 1));
}

QString paragraph(const char* start, const QString& text) {
  return text.isEmpty() ? QString() : element(start, escaped(text));
}

QString causes(const Run& run) {
  if (run.messages.isEmpty()) return paragraph("p", causeText(run));
  QString html = paragraph("p", run.remark);
  for (const QString& message : run.messages)
    html += paragraph("p", keyText(message)) + paragraph("p class=\"quiet\"", adviceText(message));
  return html;
}

QString testFacts(const Run& run, const QString& language) {
  Facts facts;
  facts.add(Texts::tr("Run"), QString::number(run.number));
  facts.add(Texts::tr("Test"), keyText(run.test.name));
  facts.add(Texts::tr("Group of tests"), keyText(run.test.diagnostic));
  facts.addHtml(Texts::tr("Started"), timeElement(run.start));
  facts.addHtml(Texts::tr("Ended"), timeElement(run.end));
  facts.add(Texts::tr("Duration"), secondsText(run, language));
  facts.add(Texts::tr("Ended by"), endingText(run.ending));
  facts.add(Texts::tr("Operator"), run.operatorName);
  facts.add(Texts::tr("Serial number"), run.serialNumber);
  for (auto entry = run.settings.begin(); entry != run.settings.end(); ++entry)
    facts.add(settingText(entry.key()), entry.value());
  facts.add(Texts::tr("Versions"),
            Texts::tr("program %1, module %2, Qt %3").arg(run.versions.host, run.versions.module, run.versions.qt));
  return element("h3", escaped(Texts::tr("The test"))) + facts.html();
}

QString cameraFacts(const Run& run) {
  Facts facts;
  facts.add(Texts::tr("Name"), run.camera.name);
  facts.add(Texts::tr("Number"), run.camera.number);
  for (const Property& property : run.camera.properties) facts.add(keyText(property.key), property.value);
  return element("h3", escaped(Texts::tr("The camera"))) + facts.html();
}

QString answers(const Run& run) {
  QString items;
  for (const Run::Request& request : run.requests) {
    if (request.kind == InputRequest::kDialog) continue;
    items +=
        element("li", paragraph("p class=\"said\"", keyText(request.text)) +
                          paragraph("p class=\"answer\"", Texts::tr("Answer: %1").arg(answerText(request.answer))));
  }
  if (items.isEmpty()) return {};
  return element("h3", escaped(Texts::tr("What was asked"))) + element("ol", items);
}

QString figure(const Run& run, const Run::Picture& picture) {
  QImage image = QImage::fromData(picture.png, "PNG");
  if (image.isNull())
    return paragraph("p class=\"quiet\"", Texts::tr("The picture %1 is not there.").arg(pictureText(picture.name)));
  if (image.width() > kWidestPicture) image = image.scaledToWidth(kWidestPicture, Qt::SmoothTransformation);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  const QString alternative = QStringLiteral("%1: %2").arg(keyText(run.test.name), pictureText(picture.name));
  return element("figure",
                 QStringLiteral("<img src=\"data:image/png;base64,%1\" width=\"%2\" height=\"%3\" alt=\"%4\" />")
                         .arg(QString::fromLatin1(png.toBase64()), QString::number(image.width()),
                              QString::number(image.height()), escaped(alternative)) +
                     element("figcaption", escaped(pictureText(picture.name))));
}

QString pictures(const Run& run) {
  if (run.pictures.isEmpty()) return {};
  QString figures;
  for (const Run::Picture& picture : run.pictures) figures += figure(run, picture);
  return element("h3", escaped(Texts::tr("What was on the screen"))) + figures;
}

// Of the table of all runs.
QString row(const Run& run, int index, const QString& language) {
  return element("tr", element("td", QStringLiteral("<a href=\"#run-%1\">%2</a>").arg(index).arg(run.number)) +
                           element("td", element("div", escaped(run.camera.name)) +
                                             element("div class=\"quiet\"", escaped(keyText(run.test.name)))) +
                           element("td", verdictElement(run)) + element("td class=\"wide\"", timeElement(run.start)) +
                           element("td class=\"wide\"", escaped(secondsText(run, language))));
}

QString headRow() {
  return element("tr", element("th scope=\"col\"", escaped(Texts::tr("Run"))) +
                           element("th scope=\"col\"", escaped(Texts::tr("Camera and test"))) +
                           element("th scope=\"col\"", escaped(Texts::tr("Result"))) +
                           element("th scope=\"col\" class=\"wide\"", escaped(Texts::tr("Started"))) +
                           element("th scope=\"col\" class=\"wide\"", escaped(Texts::tr("Duration"))));
}

// "Passed: 3, Failed: 1".
QString countText(const QMap<TestResult, int>& counts) {
  QStringList texts;
  for (auto count = counts.begin(); count != counts.end(); ++count) {
    Run run;
    run.result = count.key();
    texts.append(QStringLiteral("%1: %2").arg(verdictText(run), QString::number(count.value())));
  }
  return texts.isEmpty() ? Texts::tr("No test has run yet.") : texts.join(QStringLiteral(", "));
}

QString section(const Run& run, int index, const QString& language) {
  return QStringLiteral("<article id=\"run-%1\">\n").arg(index) + element("h2", escaped(titleText(run))) +
         element("p class=\"verdict\"", verdictElement(run)) + causes(run) + testFacts(run, language) +
         cameraFacts(run) + answers(run) + pictures(run) + QStringLiteral("</article>\n");
}

}  // namespace

void HtmlReport::add(const Run& run) {
  ++size;
  ++counts[run.result.value_or(kTestError)];
  rows += row(run, size, language);
  sections += section(run, size, language).toUtf8();
}

QByteArray HtmlReport::page() const {
  const QString title = escaped(Texts::tr("Camera test report"));
  QString start = QStringLiteral(
                      "<!DOCTYPE html>\n<html lang=\"%1\">\n<head>\n<meta charset=\"utf-8\" />\n"
                      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\" />\n"
                      "<title>%2</title>\n<style>%3</style>\n</head>\n<body>\n<main>\n")
                      .arg(escaped(language), title, QLatin1String(kHtmlStyle));
  start += element("h1", title) + element("p class=\"quiet\"", escaped(countText(counts)));
  if (size > 1) start += element("table", element("caption", escaped(Texts::tr("All runs"))) + headRow() + rows);
  return start.toUtf8() + sections + "</main>\n</body>\n</html>\n";
}

QByteArray htmlReport(const QList<Run>& runs, const QString& language) {
  HtmlReport report(language);
  for (const Run& run : runs) report.add(run);
  return report.page();
}
