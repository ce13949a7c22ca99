#pragma once

#include <QByteArray>
#include <QDir>
#include <QJsonObject>
#include <QList>
#include <QString>

#include "standalone/host/session/run.h"

// The record of runs, from which every other report can be made again: JSON lines, as docs/report.schema.json has them.

/// Counts the forms of the record that a reader of the one before would misread; further fields need no new number.
inline constexpr int kSchemaVersion = 1;

QJsonObject cameraJson(const Camera& camera);

/// A finished run as one line with a line feed, texts translated beside their keys. `folder` is where the line will be
/// read from: pictures in or below it are named from there, all others, and all without a folder, by their whole path.
QByteArray jsonLine(const Run& run, const QDir* folder);

/// The runs of a record: JSON lines, or one object that is spread over lines. Pictures are loaded from their files; one
/// that is gone stays empty. Fields that it does not know or can work out are not looked at. Throws HostError, which
/// says what is wrong in which line.
QList<Run> readRuns(const QString& fileName);
