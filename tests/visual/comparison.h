// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

/// The difference between two pictures.
struct Comparison
{
    int differing = 0; ///< pixels that differ by more than the tolerance
    int largest = 0; ///< of the differences of a channel, of 255
    QImage difference; ///< as large as both; red where they differ, faint where they don't

    bool isEqual() const { return differing == 0; }
};

/// Compares pixel by pixel. Tolerated is what another processor rounds otherwise, which is less
/// than the step between any two colours of the theme. Where only one picture has a pixel it
/// differs.
Comparison compared(const QImage &expected, const QImage &actual);

/// Three pictures in a row, magnified, each on its own ground: expected, actual, difference.
QImage sideBySide(const QImage &expected, const QImage &actual, const QImage &difference);

/// Compares a picture with the one stored at path. Yields what is wrong, a sentence that names the
/// file; empty where nothing is. Where the pictures differ it writes the three to differencePath.
QString compareWithFile(const QImage &actual, const QString &path, const QString &differencePath);

/// Stores a picture with as few bytes as it takes, making the folder. False where that fails.
bool storePicture(const QImage &picture, const QString &path);
