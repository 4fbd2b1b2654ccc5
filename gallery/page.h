// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

struct Options;

class QFrame;
class QLabel;
class QVBoxLayout;

/// The content of one gallery page: a title, then sections, each a caption over a card with live
/// specimens and the lines of code that made them. Every widget that is added becomes the page's.
///
///     page.addSummary("A flat push button in six roles.");
///     page.addSection("Roles", "The number given to the constructor chooses the look.");
///     page.addRow({new VemoButton("Save", 0), new VemoButton("Cancel", 1)});
///     page.addCode("new VemoButton(\"Save\", VemoButton::APPLY);");
class Page : public QWidget
{
    Q_OBJECT

public:
    Page(const QString &title, const Options &options);

    /// What the user chose on the command line.
    const Options &options() const { return m_options; }

    /// One or two sentences below the title.
    void addSummary(const QString &text);

    /// Starts a new card, which takes what is added from now on.
    void addSection(const QString &caption, const QString &explanation = {});

    /// A specimen that takes the card's width.
    void add(QWidget *specimen);

    /// Specimens side by side, at their own widths.
    void addRow(const QList<QWidget *> &specimens);

    /// Specimens in columns of equal width, row by row.
    void addGrid(int columns, const QList<QWidget *> &specimens);

    /// Rows under column captions; a null pointer leaves a cell empty.
    void addTable(const QStringList &captions, const QList<QList<QWidget *>> &rows);

    /// The code of the specimens above it: lines of at most 90 characters.
    void addCode(const QString &code);

private:
    QVBoxLayout *card();

    const Options &m_options;
    QVBoxLayout *m_layout;
    QVBoxLayout *m_card = nullptr;
};

/// A specimen with its name below.
QWidget *captioned(QWidget *specimen, const QString &caption);

/// Plain text on a card, in ink; selectable.
QLabel *text(const QString &text);

/// Plain text on a card, in soft ink.
QLabel *note(const QString &text);

/// A picture on a card.
QLabel *picture(const QPixmap &pixmap);
