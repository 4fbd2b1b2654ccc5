// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Aborts the program unless holds is true, which a fuzzer reports as a finding.
void require(bool holds, const char *promise);

/// The characters of bytes, NULs included.
QString textOf(const QByteArray &bytes);

/// Removes and returns the part of data before the first separator, or all of it if there is none.
/// The separator is also removed.
QByteArray takePart(QByteArray *data, char separator = '\n');

/// One run of a target: passes data to the library and checks the result.
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

/// Performs the common set-up and returns the target with this name; null if there is none.
FuzzTarget preparedTarget(const QByteArray &name);
QList<QByteArray> targetNames();
