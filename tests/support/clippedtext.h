// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// What the visible widgets under root, and root itself, don't show whole, a line for each: texts
/// of labels, buttons, boxes, header sections, the calendar's cells, and placeholders. Left out is
/// what is cut on purpose: the content of a line edit, which scrolls, and the cells of other
/// tables, trees and lists, which end in three dots.
QStringList clippedTexts(QWidget *root);
