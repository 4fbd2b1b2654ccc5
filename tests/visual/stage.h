// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPointer>
#include <QWidget>
#include <QWindow>

enum class State { Rest, Hover, Pressed, Focus, Disabled };

/// A shown, active window on the theme's ground with one widget in it, which is put into its states
/// by what a user does, and drawn.
///
///     Stage stage(new VemoCheckBox);
///     stage.put(State::Hover);
///     const QImage picture = stage.picture();
class Stage
{
public:
    /// Takes the widget. size is in design pixels; where it has no width or no height, the widget's
    /// own one counts.
    explicit Stage(QWidget *widget, const QSize &size = {});
    ~Stage();
    Q_DISABLE_COPY(Stage)

    /// Puts the widget, or a part of it, into a state.
    void put(State state, QWidget *part);

    /// point is in the part's own coordinates.
    void hover(QWidget *part, const QPoint &point) const;
    void press(QWidget *part, const QPoint &point);

    /// The widget with a breath of ground around it.
    QImage picture();

private:
    QWidget m_window;
    QPointer<QWindow> m_pressed;
};

/// Of a pop-up or any other shown widget, without ground.
QImage pictureOf(QWidget *widget);
