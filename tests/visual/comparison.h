// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

/// The difference between two pictures.
struct Comparison
{
    int differing = 0; ///< pixels that differ by more than the tolerance
    int largest = 0; ///< the largest difference of a channel, of 255
    QImage difference; ///< as large as both; red where they differ, faint elsewhere

    bool isEqual() const { return differing == 0; }
};

/// Compares pixel by pixel, with a tolerance for rounding differences between processors that is
/// smaller than the difference of any two colours of the theme. Pixels that only one picture has
/// are differences.
Comparison compared(const QImage &expected, const QImage &actual);

/// Three magnified pictures in a row: expected, actual, difference.
QImage sideBySide(const QImage &expected, const QImage &actual, const QImage &difference);

/// Compares a picture with the one stored at path. Returns an error message with the name of the
/// file; empty if they are equal. If they differ, writes the three pictures to differencePath.
QString compareWithFile(const QImage &actual, const QString &path, const QString &differencePath);

/// The same with a picture that was already read; path is only for the message.
QString compareWithStored(const QImage &actual, const QImage &expected, const QString &path,
    const QString &differencePath);

/// Stores a picture with as few bytes as possible, and creates the folder. Returns false on
/// failure.
bool storePicture(const QImage &picture, const QString &path);
