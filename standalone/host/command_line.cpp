#include "standalone/host/command_line.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <utility>

#include "standalone/host/host_error.h"

namespace {

constexpr std::array<std::pair<const char*, AnswerMode>, 4> kAnswers = {{{"ask", AnswerMode::kAsk},
                                                                         {"pass", AnswerMode::kPass},
                                                                         {"fail", AnswerMode::kFail},
                                                                         {"close", AnswerMode::kClose}}};

void describe(QCommandLineParser& parser) {
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsCompactedShortOptions);
  parser.addOptions({
      {{"h", "help"}, "Shows the module's help and this one."},
      {"list", "Shows the cameras with their properties."},
      {"M", "The module whose tests are to run: -Mcamera.", "module"},
      {"ui", "Runs the tests with windows. Without it they cannot run and say so."},
      {"answer",
       "Who answers the windows: ask (the user), pass (confirms, waits, says yes), fail (says no, or presses the fail "
       "button), close (closes the test's window, then the question). The default is ask.",
       "who"},
      {"timeout", "How long the live picture of the capture test is shown.", "seconds"},
      {"json", "Writes one line of JSON for each test into a new file; - is standard output.", "file"},
      {"pictures", "Saves a picture of the screen for each window into this folder.", "folder"},
      {"module", "The module's library; by default module_camera.dll beside this program.", "file"},
      {"cancel-after", "Cancels each test after so many seconds.", "seconds"},
      {"event-after", "Raises an event of the host so many seconds after a test began.", "seconds:value"},
  });
}

double seconds(const QString& option, const QString& text) {
  bool isNumber = false;
  const double value = text.toDouble(&isNumber);
  if (!isNumber || !(value >= 0 && value <= 1e6)) {
    throw HostError(QStringLiteral("--%1 needs a number of seconds, not \"%2\".").arg(option, text));
  }
  return value;
}

AnswerMode answerMode(const QString& word) {
  const auto found =
      std::ranges::find_if(kAnswers, [&](const auto& entry) { return word == QLatin1String(entry.first); });
  if (found == kAnswers.end()) {
    throw HostError(QStringLiteral("--answer is ask, pass, fail or close, not \"%1\".").arg(word));
  }
  return found->second;
}

CommandLine::TimedEvent timedEvent(const QString& text) {
  const QStringList parts = text.split(QLatin1Char(':'));
  bool isNumber = false;
  const std::uint32_t value = parts.size() == 2 ? parts[1].toUInt(&isNumber, 0) : 0;
  if (!isNumber) {
    throw HostError(QStringLiteral("--event-after needs seconds and a value as in 2:1, not \"%1\".").arg(text));
  }
  return {seconds(QStringLiteral("event-after"), parts[0]), value};
}

bool isNumber(const QString& text) {
  return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// The first word names tests unless it is a number; all others are cameras.
void takeWords(CommandLine& line, QStringList words) {
  if (!words.isEmpty() && !isNumber(words.front())) {
    line.tests = words.takeFirst();
  }
  for (const QString& word : std::as_const(words)) {
    if (!isNumber(word)) {
      throw HostError(QStringLiteral("\"%1\" is not the number of a camera.").arg(word));
    }
    const QString number = QString::number(word.toULongLong());
    if (!line.cameras.contains(number)) {
      line.cameras.append(number);
    }
  }
}

void checkTogether(const CommandLine& line) {
  if (line.help) {
    return;
  }
  if (line.module.isEmpty()) {
    if (!line.tests.isEmpty() || !line.cameras.isEmpty()) {
      throw HostError(QStringLiteral("Tests and cameras need the module that they belong to: -Mcamera."));
    }
    if (!line.list) {
      throw HostError(
          QStringLiteral("Nothing to do: -Mcamera runs tests, --list shows the cameras, --help tells more."));
    }
  }
  if (!line.ui && (line.answer != AnswerMode::kAsk || !line.picturesFolder.isEmpty())) {
    throw HostError(QStringLiteral("--answer and --pictures need windows: --ui."));
  }
}

}  // namespace

CommandLine CommandLine::parse(const QStringList& arguments) {
  QCommandLineParser parser;
  describe(parser);
  if (!parser.parse(arguments)) {
    throw HostError(parser.errorText() + QStringLiteral(" See --help."));
  }
  CommandLine line;
  line.help = parser.isSet("help");
  line.list = parser.isSet("list");
  line.ui = parser.isSet("ui");
  line.module = parser.value("M");
  line.jsonFile = parser.value("json");
  line.picturesFolder = parser.value("pictures");
  line.moduleFile = parser.value("module");
  if (parser.isSet("answer")) {
    line.answer = answerMode(parser.value("answer"));
  }
  if (parser.isSet("timeout")) {
    line.timeout = parser.value("timeout");
  }
  if (parser.isSet("cancel-after")) {
    line.cancelAfter = seconds(QStringLiteral("cancel-after"), parser.value("cancel-after"));
  }
  if (parser.isSet("event-after")) {
    line.eventAfter = timedEvent(parser.value("event-after"));
  }
  takeWords(line, parser.positionalArguments());
  checkTogether(line);
  return line;
}

QString CommandLine::optionHelp() {
  QCommandLineParser parser;
  describe(parser);
  parser.addPositionalArgument(
      "tests",
      "The diagnostic Q (or quick) and, in quotation marks, words of tests: Q\"c b\". Either may "
      "be left out; no test stands for all tests.",
      "[diagnostic][\"tests\"]");
  parser.addPositionalArgument("cameras", "Numbers of cameras as --list shows them; none stands for all cameras.",
                               "[camera...]");
  return parser.helpText() + QStringLiteral(
                                 "\nExit codes:\n"
                                 "  0  every test passed, or there was nothing to run\n"
                                 "  1  a test failed\n"
                                 "  2  the command line or the set-up is wrong; nothing ran\n"
                                 "  3  no test failed, but one was cancelled, could not run or is not supported\n");
}
