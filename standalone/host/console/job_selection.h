#pragma once

#include <QList>
#include <QStringList>

#include "standalone/host/session/session.h"

/// The jobs that the words of a command line name among the session's cameras and tests: first, in one word, a
/// diagnostic's word that is directly followed by words of tests, separated by blanks or quotation marks; then numbers
/// or unique identifiers of cameras. Every part may be missing and then stands for all. Each test and camera comes
/// once, in the order of the words; all tests of a camera before the next camera's. Throws HostError for a word that
/// nothing bears.
QList<Job> selectJobs(const Session& session, QStringList words);
