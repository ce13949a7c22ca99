#include "standalone/host/console/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "standalone/host/host_error.h"

namespace {

constexpr std::array<std::pair<const char*, AnswerMode>, 4> kAnswers = {{{"ask", AnswerMode::kAsk},
                                                                         {"pass", AnswerMode::kPass},
                                                                         {"fail", AnswerMode::kFail},
                                                                         {"close", AnswerMode::kClose}}};
constexpr int kMostRepeats = 10000;
constexpr double kLongestDelay = 1e6;

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

void describe(QCommandLineParser& parser) {
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsCompactedShortOptions);
  parser.addOptions({
      {{"h", "help"}, Texts::tr("Shows this help; with -Mcamera the module's, too.")},
      {"version", Texts::tr("Shows the versions of this program and of Qt.")},
      {"list", Texts::tr("Shows the cameras with their properties and runs nothing.")},
      {"M", Texts::tr("The module whose tests are to run: -Mcamera."), "module"},
      {"ui", Texts::tr("Runs the tests with windows. Without it they cannot run and say so.")},
      {"answer",
       Texts::tr(
           "Who answers the windows: ask (the user), pass (confirms, waits, says yes), fail (says no, or presses the "
           "fail button), close (closes the test's window, then the question). The default is ask."),
       "who"},
      {"timeout", Texts::tr("How long the live picture of the capture test is shown, in whole seconds."), "seconds"},
      {"repeat", Texts::tr("Runs the whole list of tests so many times."), "number"},
      {"json", Texts::tr("Writes one line of JSON for each test into a new file; - is standard output."), "file"},
      {"html", Texts::tr("Writes a page about all tests into a new file."), "file"},
      {"junit", Texts::tr("Writes the results as JUnit XML into a new file."), "file"},
      {"reports", Texts::tr("Writes a page, a record and the pictures of each test into this folder."), "folder"},
      {"report", Texts::tr("Runs nothing, but makes --html and --junit from a record that --json wrote."), "file"},
      {"pictures", Texts::tr("Saves pictures of the windows of each test into this folder."), "folder"},
      {"operator", Texts::tr("The name of the person who tests, for the reports."), "name"},
      {"serial", Texts::tr("The serial number of the PC, for the reports."), "number"},
      {"language", Texts::tr("The language of all texts: en or de. By default the system's."), "language"},
      {"log", Texts::tr("Appends what happens to this file, with the time."), "file"},
      {"quiet", Texts::tr("Writes only errors.")},
      {"module", Texts::tr("The module's library; by default module_camera.dll beside this program."), "file"},
      {"cancel-after", Texts::tr("Cancels each test after so many seconds."), "seconds"},
      {"event-after", Texts::tr("Raises an event of the host so many seconds after a test began."), "seconds:value"},
  });
}

// The whole number that a text of digits is, when it lies within the limits.
std::optional<std::uint32_t> wholeNumber(const QString& text, std::uint32_t least, std::uint32_t most) {
  const bool isDigits = !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
  bool fits = false;
  const qulonglong value = text.toULongLong(&fits);
  if (!isDigits || !fits || value < least || value > most) return std::nullopt;
  return static_cast<std::uint32_t>(value);
}

std::uint32_t number(const QCommandLineParser& parser, const char* option, std::uint32_t least, std::uint32_t most) {
  const QString text = parser.value(QLatin1String(option));
  const std::optional<std::uint32_t> value = wholeNumber(text, least, most);
  if (!value) {
    throw HostError(Texts::tr("--%1 needs a whole number from %2 to %3, not \"%4\".")
                        .arg(QLatin1String(option), QString::number(least), QString::number(most), text));
  }
  return *value;
}

double seconds(const char* option, const QString& text) {
  bool isNumber = false;
  const double value = text.toDouble(&isNumber);
  if (!isNumber || !(value >= 0 && value <= kLongestDelay)) {
    throw HostError(Texts::tr("--%1 needs a number of seconds, not \"%2\".").arg(QLatin1String(option), text));
  }
  return value;
}

AnswerMode answerMode(const QString& word) {
  const auto found =
      std::ranges::find_if(kAnswers, [&](const auto& entry) { return word == QLatin1String(entry.first); });
  if (found == kAnswers.end())
    throw HostError(Texts::tr("--answer is ask, pass, fail or close, not \"%1\".").arg(word));
  return found->second;
}

Interference::Event timedEvent(const QString& text) {
  const QStringList parts = text.split(QLatin1Char(':'));
  bool isNumber = false;
  const std::uint32_t value = parts.size() == 2 ? parts[1].toUInt(&isNumber, 0) : 0;
  if (!isNumber) throw HostError(Texts::tr("--event-after needs seconds and a value as in 2:1, not \"%1\".").arg(text));
  return {seconds("event-after", parts[0]), value};
}

QString language(const QString& word) {
  if (word == QLatin1String("en") || word == QLatin1String("de")) return word;
  throw HostError(Texts::tr("--language is en or de, not \"%1\".").arg(word));
}

CommandLine::Task taskOf(const QCommandLineParser& parser) {
  using Task = CommandLine::Task;
  if (parser.isSet("help")) return Task::kHelp;
  if (parser.isSet("version")) return Task::kVersion;
  if (parser.isSet("report")) return Task::kConvert;
  if (parser.isSet("list")) return Task::kList;
  return parser.isSet("M") ? Task::kRun : Task::kWindow;
}

void checkTogether(const CommandLine& line) {
  using Task = CommandLine::Task;
  if (line.task == Task::kHelp || line.task == Task::kVersion) return;
  if (line.task == Task::kList && (!line.module.isEmpty() || !line.words.isEmpty()))
    throw HostError(Texts::tr("--list runs nothing: it takes neither -M nor tests and cameras."));
  if (line.module.isEmpty() && !line.words.isEmpty())
    throw HostError(Texts::tr("Tests and cameras need the module that they belong to: -Mcamera."));
  const ReportWishes& wishes = line.reports;
  const bool wantsPages = !(wishes.htmlFile + wishes.junitFile + wishes.folder).isEmpty();
  if (line.task == Task::kConvert && !line.module.isEmpty())
    throw HostError(Texts::tr("--report runs nothing: it takes neither -M nor tests and cameras."));
  if (line.task == Task::kConvert && !wantsPages)
    throw HostError(Texts::tr("--report needs to know what to make of the record: --html, --junit or --reports."));
  if (line.task == Task::kList && wantsPages)
    throw HostError(Texts::tr("--list makes no reports; --json writes the cameras."));
  if (line.task != Task::kRun && line.repeat != 1) throw HostError(Texts::tr("--repeat needs tests to run: -Mcamera."));
  for (const QString& file : {wishes.htmlFile, wishes.junitFile})
    if (file == QLatin1String("-")) throw HostError(Texts::tr("Only --json can be written to standard output."));
  if (!line.ui && (line.answer != AnswerMode::kAsk || !line.picturesFolder.isEmpty()))
    throw HostError(Texts::tr("--answer and --pictures need windows: --ui."));
}

}  // namespace

CommandLine CommandLine::parse(const QStringList& arguments) {
  QCommandLineParser parser;
  describe(parser);
  if (!parser.parse(arguments)) throw HostError(parser.errorText() + QLatin1Char(' ') + Texts::tr("See --help."));
  CommandLine line;
  line.task = taskOf(parser);
  line.ui = line.task == Task::kWindow || (line.task == Task::kRun && parser.isSet("ui"));
  line.quiet = parser.isSet("quiet");
  line.module = parser.value("M");
  line.words = parser.positionalArguments();
  line.operatorName = parser.value("operator");
  line.serialNumber = parser.value("serial");
  line.reports = {parser.value("json"), parser.value("html"), parser.value("junit"), parser.value("reports")};
  line.recordFile = parser.value("report");
  line.picturesFolder = parser.value("pictures");
  line.moduleFile = parser.value("module");
  line.logFile = parser.value("log");
  if (parser.isSet("answer")) line.answer = answerMode(parser.value("answer"));
  if (parser.isSet("timeout")) line.timeout = number(parser, "timeout", 0, std::numeric_limits<std::uint32_t>::max());
  if (parser.isSet("repeat")) line.repeat = static_cast<int>(number(parser, "repeat", 1, kMostRepeats));
  if (parser.isSet("language")) line.language = ::language(parser.value("language"));
  if (parser.isSet("cancel-after"))
    line.interference.cancelAfter = seconds("cancel-after", parser.value("cancel-after"));
  if (parser.isSet("event-after")) line.interference.eventAfter = timedEvent(parser.value("event-after"));
  checkTogether(line);
  return line;
}

QString CommandLine::languageOf(const QStringList& arguments) {
  QCommandLineParser parser;
  describe(parser);
  static_cast<void>(parser.parse(arguments));  // what else is wrong is told in that language
  return parser.value("language");
}

QString CommandLine::optionHelp() {
  QCommandLineParser parser;
  describe(parser);
  parser.addPositionalArgument(
      "tests",
      Texts::tr("The diagnostic Q (or quick) and, in quotation marks, words of tests: Q\"c b\". "
                "Either may be left out; no test stands for all tests."),
      "[diagnostic][\"tests\"]");
  parser.addPositionalArgument(
      "cameras",
      Texts::tr("Numbers or unique identifiers of cameras as --list shows them; none stands for all cameras."),
      "[camera...]");
  return parser.helpText() + QLatin1Char('\n') +
         Texts::tr(
             "Without -M, --list and --report the program's window opens.\n"
             "\nExit codes:\n"
             "  0  every test passed, or there was nothing to run\n"
             "  1  a test failed\n"
             "  2  the command line or the set-up is wrong; nothing ran\n"
             "  3  no test failed, but one was cancelled, could not run or is not supported\n"
             "  4  the module itself failed, or a report could not be written\n");
}
