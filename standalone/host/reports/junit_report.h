#pragma once

#include <QByteArray>
#include <QList>

#include "standalone/host/session/run.h"

/// Finished runs as JUnit XML for build servers: a suite for each camera, and one more where its properties, the
/// settings or who tested differ from run to run.
QByteArray junitReport(const QList<Run>& runs);
