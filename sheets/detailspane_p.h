// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QWidget>

#include <functional>

class QPlainTextEdit;
class QPushButton;

/// A text of details, plain and read-only, below the button that unfolds and folds it. Initially
/// folded.
class DetailsPane : public QWidget
{
public:
    /// toggled is called after each change of the height.
    DetailsPane(QWidget *parent, std::function<void()> toggled);

    void setText(const QString &text);
    QString text() const;

    /// The accessible name of the text.
    void setTextName(const QString &name);
    void translate();

    QPushButton *button() const { return m_button; }
    QWidget *textWidget() const;
    /// The width of the frame of the button, in screen pixels. The text is not as wide as the pane
    /// by that on either side.
    int frame() const { return m_frame; }

private:
    void toggle();

    QPushButton *m_button;
    QPlainTextEdit *m_text;
    int m_frame;
    std::function<void()> m_toggled;
};
