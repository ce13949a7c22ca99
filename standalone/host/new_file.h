#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

/// Opens a file for unbuffered writing that was not there before: no report is ever overwritten. Throws HostError.
void openNewFile(QFile& file);

/// Writes into an unbuffered file. Goes on after a part: only then the system says why the rest cannot be written.
/// False when not all is on its way to the disk.
bool writeAll(QFileDevice& file, const QByteArray& content);

/// Makes a folder, and those that it lies in, where they are not there. Throws HostError.
void makeFolder(const QDir& folder);

/// Writes `stem`.`suffix` into a folder, which is made if need be; where that name is taken, `stem`_2 and so on.
/// Returns the file's whole path. Throws HostError.
QString writeNewFile(const QDir& folder, const QString& stem, const QString& suffix, const QByteArray& content);
