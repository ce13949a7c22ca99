#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

/// Who answers the windows of a test.
enum class AnswerMode { kAsk, kPass, kFail, kClose };

/// What the user asked for. Words are kept as written: what they mean depends on the module and the cameras.
struct CommandLine {
  /// An event of the host, raised some time after a test began.
  struct TimedEvent {
    double seconds = 0;
    std::uint32_t value = 0;
  };

  bool help = false;
  bool list = false;
  bool ui = false;
  /// The word after -M; empty when the user selects no module.
  QString module;
  /// Diagnostic and tests, as one word of the command line; empty for all.
  QString tests;
  /// The decimal numbers of cameras, each once; empty for all.
  QStringList cameras;
  AnswerMode answer = AnswerMode::kAsk;
  std::optional<QString> timeout;
  QString jsonFile;
  QString picturesFolder;
  QString moduleFile;
  std::optional<double> cancelAfter;
  std::optional<TimedEvent> eventAfter;

  /// `arguments` begins with the program's name. Throws HostError when they make no sense.
  static CommandLine parse(const QStringList& arguments);
  /// The description of the options for --help.
  static QString optionHelp();
};
