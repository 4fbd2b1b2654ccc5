// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

struct Options;

class QFrame;
class QLabel;
class QVBoxLayout;

/// The content of a gallery page: a title and sections, each with a caption and a card that shows
/// live specimens and the code that creates them. The page takes ownership of every widget added to
/// it.
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

    /// The command line options.
    const Options &options() const { return m_options; }

    /// One or two sentences below the title.
    void addSummary(const QString &text);

    /// Starts a new card, to which everything is added from then on.
    void addSection(const QString &caption, const QString &explanation = {});

    /// Adds a specimen as wide as the card.
    void add(QWidget *specimen);

    /// Adds specimens side by side, with their own widths, in as many lines as they need.
    void addRow(const QList<QWidget *> &specimens);

    /// Adds specimens row by row in columns of equal width.
    void addGrid(int columns, const QList<QWidget *> &specimens);

    /// Adds rows under column captions; a null pointer leaves a cell empty.
    void addTable(const QStringList &captions, const QList<QList<QWidget *>> &rows);

    /// Adds the code of the specimens above it, with at most 90 characters per line.
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

/// A picture on a card, made again when another theme has been loaded.
QLabel *picture(const std::function<QPixmap()> &make);
