// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QVector>
#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QTextBrowser;
class QTextDocument;
class QToolButton;

/// The positions at which page contains text, in either case. A blank also stands for one that does
/// not break. Matches don't overlap.
QVector<int> matchesIn(const QTextDocument &page, const QString &text);

/// A bar below a page that finds a text in it while it is typed. Its actions have the usual keys;
/// the window must add them.
class FindBar : public QWidget
{
public:
    /// Creates a hidden bar.
    explicit FindBar(QTextBrowser *view);

    /// Shows the bar and selects its text, or takes over the text that is selected in the page.
    void open();
    /// Hides the bar; the match remains selected.
    void close();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum Direction { FROM_SELECTION, FORWARD, BACKWARD };

    void addKeys(QWidget *window);
    QToolButton *addButton(const char *picture);
    void find(Direction direction);
    void select(int position, int length);
    void showResult(const QString &text, bool isMissing);
    void forgetMatch();
    void setTexts();
    void growToFont();

    QTextBrowser *m_view;
    QLineEdit *m_text;
    QLabel *m_result;
    QToolButton *m_previous = nullptr;
    QToolButton *m_next = nullptr;
    QToolButton *m_close = nullptr;
    QAction *m_escape = nullptr;
};
