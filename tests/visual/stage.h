// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPointer>
#include <QWidget>
#include <QWindow>

enum class State { Rest, Hover, Pressed, Focus, Disabled };

/// An active window with the theme's background that contains a widget. User input puts the widget
/// into its states, and the result is drawn.
///
///     Stage stage(new VemoCheckBox);
///     stage.put(State::Hover);
///     const QImage picture = stage.picture();
class Stage
{
public:
    /// Takes ownership of the widget. size is in design pixels; if its width or height is 0, that
    /// of the widget is used.
    explicit Stage(QWidget *widget, const QSize &size = {});
    ~Stage();
    Q_DISABLE_COPY(Stage)

    /// Puts the widget, or a part of it, into a state.
    void put(State state, QWidget *part);

    /// point is in the part's own coordinates.
    void hover(QWidget *part, const QPoint &point) const;
    void press(QWidget *part, const QPoint &point);

    /// The widget with some background around it.
    QImage picture();

private:
    QWidget m_window;
    QPointer<QWindow> m_pressed;
};

/// The picture of a pop-up or any other visible widget, without background.
QImage pictureOf(QWidget *widget);
