// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>

#include <QStyle>

/// A button that is always drawn in a given state, by the real style with the real section and the
/// flag of the state. It accepts neither clicks nor the focus.
class ButtonSnapshot : public VemoButton
{
    Q_OBJECT

public:
    ButtonSnapshot(const QString &text, int role, QStyle::State state);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStyle::State m_state;
};

/// The same for an icon button, which also shows the picture of the state.
class IconButtonSnapshot : public VemoIconButton
{
    Q_OBJECT

public:
    IconButtonSnapshot(const QString &name, QStyle::State state);

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    QString m_name;
    QStyle::State m_state;
};
