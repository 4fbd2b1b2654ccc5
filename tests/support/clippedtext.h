// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// The texts that root and the visible widgets below it do not show completely, one line for each:
/// texts of labels, buttons, boxes, header sections, the calendar's cells, and placeholders. Texts
/// that are cut off deliberately are ignored: the content of a line edit, which scrolls, and the
/// cells of other tables, trees and lists, which end with three dots.
QStringList clippedTexts(QWidget *root);

/// The languages to look for clipped texts in: all codes at factor 1, and at other factors, where
/// only rounding differs, those with the longest words, the tallest letters and the other
/// direction.
QStringList languagesToCheck(const QStringList &codes);
