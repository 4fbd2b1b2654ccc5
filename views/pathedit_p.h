// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLineEdit>
#include <QPointer>

/// The field over a VemoButtonPath in which the user types a path. It ends on Return, on Escape and
/// when it loses the focus.
class PathEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit PathEdit(QWidget *bar);

    /// Shows path, selected, and takes the focus.
    void start(const QString &path);

Q_SIGNALS:
    void pathEntered(QString path);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    /// Hides the field and returns the focus to the widget that had it.
    void giveBack();

    QPointer<QWidget> m_before; ///< had the focus
};
