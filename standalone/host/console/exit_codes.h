#pragma once

/// What the program's exit code says, from the worst to the best.
enum ExitCode : int {
  /// The module itself failed, or a report could not be written.
  kExitFault = 4,
  /// The command line or the set-up is wrong; nothing ran.
  kExitUsage = 2,
  kExitTestFailed = 1,
  /// No test failed, but not all passed.
  kExitNotAllPassed = 3,
  kExitPassed = 0,
  /// A crash, which is none of the above.
  kExitCrash = 70,
};
