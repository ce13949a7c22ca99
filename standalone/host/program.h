#pragma once

struct CommandLine;

/// Does what a command line asks for; returns the program's exit code. Needs an application, one with windows where the
/// command line wants windows. Throws HostError for what the user must put right and ModuleFault for a broken module.
int runProgram(const CommandLine& line);
