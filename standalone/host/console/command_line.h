#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

#include "standalone/host/reports/report_files.h"
#include "standalone/host/session/execution_context.h"
#include "standalone/host/window/answer_mode.h"

/// What the user asked for. Words are kept as written: what they mean depends on the module and the cameras.
struct CommandLine {
  enum class Task { kHelp, kVersion, kConvert, kList, kRun, kWindow };

  Task task = Task::kWindow;
  /// Whether there are windows.
  bool ui = true;
  bool quiet = false;
  /// The word after -M; empty when the user selects no module.
  QString module;
  /// Tests and cameras.
  QStringList words;
  int repeat = 1;
  AnswerMode answer = AnswerMode::kAsk;
  /// Of the capture test's picture, in seconds.
  std::optional<std::uint32_t> timeout;
  QString operatorName;
  QString serialNumber;
  Interference interference;
  ReportWishes reports;
  /// A record that reports are to be made from.
  QString recordFile;
  QString picturesFolder;
  QString moduleFile;
  QString logFile;
  /// "en", "de" or empty.
  QString language;

  /// `arguments` begins with the program's name. Throws HostError when they make no sense.
  static CommandLine parse(const QStringList& arguments);
  /// The language that the arguments ask for, whatever else they say; empty for none.
  static QString languageOf(const QStringList& arguments);
  /// The description of the options for --help.
  static QString optionHelp();
};
