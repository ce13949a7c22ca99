#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string>
#include <vector>

#include "module/test.h"

/// Everything that one run of one test left.
struct TestReport {
  struct Progress {
    int percent = 0;
    std::string text;
  };
  struct Request {
    std::string title;
    std::string text;
    std::uint32_t kind = 0;
    std::uint32_t answer = 0;
  };

  std::string cameraId;
  std::string cameraName;
  std::string testKey;
  TestResult result = kTestError;
  std::vector<std::string> messages;
  std::vector<Progress> progress;
  std::vector<Request> requests;
  double seconds = 0;
};

/// "passed", "failed" and so on; the number for a result that the contract does not know.
QString resultWord(TestResult result);

/// The report as one line of JSON with a line feed, texts translated beside their keys.
QByteArray jsonLine(const TestReport& report);

/// The exit code of a program whose tests ran without a failure, but not all with success.
inline constexpr int kNotAllPassed = 3;

/// The program's exit code for these results: 1 when a test failed, else `kNotAllPassed` or 0.
int exitCode(const std::vector<TestReport>& reports);
