// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QIcon>
#include <QToolButton>

/// A tool button that is only a picture, with one each for rest, hover, press and disabled.
///
/// The pictures come from the catalogue by one name, or one by one from the host. A menu set on the
/// button opens on press and stays its owner's; once it is closed the button shows the picture of
/// rest. Each time it is shown, enabled or disabled, the button goes back to the picture of rest,
/// or to that of disabled. It is made without a parent: the layout that it is put into gives it
/// one.
///
/// Initialise the catalogue and load the style files before: an unknown name leaves the button
/// empty, a missing section "component.icon_button" without its look, with warnings.
///
///     auto *refresh = new VemoIconButton("bt_pagebar_refresh");
///     refresh->setAccessibleName(tr("Refresh"));
///     layout->addWidget(refresh);
///
/// \image html buttons-icon-buttons.png
class VEMO_EXPORT VemoIconButton : public QToolButton
{
    Q_OBJECT

public:
    /// One picture for all four states.
    explicit VemoIconButton(const QPixmap &picture);

    /// The four states of a catalogue name; a missing state shows the normal picture.
    explicit VemoIconButton(const QString &name);

    /// Without a picture until setAllIcon() or setDefaultIcon(), as code made from a form needs it.
    explicit VemoIconButton(QWidget *parent);

    /// Takes the four states of a catalogue name, as the constructor does.
    void setAllIcon(const QString &name);

    /// Sets all four pictures and the size: that of picture over the screen's pixel ratio.
    void setDefaultIcon(const QPixmap &picture);

    /// The picture under the pointer, from the next change of state on.
    void setHoverIcon(const QPixmap &picture);
    /// The picture while pressed, from the next change of state on.
    void setPressIcon(const QPixmap &picture);
    /// The picture while disabled, from the next change of state on.
    void setDisableIcon(const QPixmap &picture);

    /// Shows the hover picture from outside, for instance in a row that highlights as a whole.
    void applyHoverStyle();
    /// Shows the picture of rest again.
    void applyNormalStyle();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void initialize();
    void showIcon(const QIcon &icon);
    void applyEnabledStyle();

    QIcon m_defaultIcon;
    QIcon m_pressIcon;
    QIcon m_hoverIcon;
    QIcon m_disableIcon;
    QSize m_iconSize; ///< in device-independent pixels
};
