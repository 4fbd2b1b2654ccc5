// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Ends the program, which a fuzzer takes for a finding, unless holds.
void require(bool holds, const char *promise);

/// The characters of bytes, NULs included.
QString textOf(const QByteArray &bytes);

/// Takes the part of data before the first separator, which goes too; all of it without one.
QByteArray takePart(QByteArray *data, char separator = '\n');

/// One round of a target: hands data to the library and compares what comes of it with what must.
using FuzzTarget = void (*)(const QByteArray &data);

void fuzzStyleFiles(const QByteArray &data);
void fuzzScaling(const QByteArray &data);
void fuzzCatalogue(const QByteArray &data);
void fuzzStrings(const QByteArray &data);
void fuzzFrames(const QByteArray &data);
void fuzzHelpPages(const QByteArray &data);
void fuzzTimes(const QByteArray &data);
void fuzzFileNames(const QByteArray &data);
void fuzzPaths(const QByteArray &data);
void fuzzPaging(const QByteArray &data);

/// The target of a name, after what all of them need was set up; null for any other name.
FuzzTarget preparedTarget(const QByteArray &name);
QList<QByteArray> targetNames();
