// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QFrame>

#include <functional>

class VemoMessageBarPrivate;

/// A bar in a window for messages that need no answer: a picture of the type, a text, optionally a
/// button for an action, and a button that closes the bar.
///
/// Put it into the layout of the window, usually at the top. It is hidden while it has no message.
/// Messages that come while it shows one are queued and shown one after another. A message with a
/// time-out closes by itself, but not while the pointer is over the bar, the focus is in it, or the
/// bar cannot be seen. The bar does not take the focus; Escape in it closes the message. For a
/// question use VemoMessageSheet.
///
/// Screen readers announce each message with its type. Requires: style files (sections
/// "component.message_bar_information", "_success", "_warning" and "_error", and
/// "component.message_bar_button"), the pictures "message_information", "_success", "_warning",
/// "_error" and "bt_close", and strings ("accessible_close", "accessible_information", "_success",
/// "_warning", "_error"). A missing one is left out or shows its key, with a warning.
///
///     auto *bar = new VemoMessageBar(page);
///     layout->insertWidget(0, bar);
///     bar->showMessage(VemoMessageBar::Success, tr("The backup is done."), 5000);
///
/// \image html messages-message-bar.png
class VEMO_EXPORT VemoMessageBar : public QFrame
{
    Q_OBJECT

public:
    /// Types of messages, which choose the look and the announcement.
    enum MessageType : int { Information, Success, Warning, Error };
    Q_ENUM(MessageType)

    /// Creates a hidden bar without a message.
    explicit VemoMessageBar(QWidget *parent = nullptr);
    ~VemoMessageBar() override;

    /// Shows a plain text, or queues it while another message is shown. timeout is in milliseconds;
    /// 0 or less means until the message is closed.
    void showMessage(MessageType type, const QString &text, int timeout = 0);
    /// The same with a button of that caption. Pressing it closes the message and then calls
    /// action, in which the bar may be deleted.
    void showMessage(MessageType type, const QString &text, const QString &actionText,
        const std::function<void()> &action, int timeout = 0);

    bool hasMessage() const; ///< whether a message is shown
    MessageType messageType() const; ///< of the message shown last; initially Information
    QString text() const; ///< of the message shown; empty without one
    int queuedCount() const; ///< messages that wait for the one that is shown

public Q_SLOTS:
    /// Closes the message, and shows the next one if there is any.
    void closeMessage();
    /// Closes the message and forgets those that wait.
    void clearMessages();

Q_SIGNALS:
    /// A message is shown now.
    void messageShown(const QString &text);
    /// The last message was closed and the bar is hidden.
    void messagesClosed();

protected:
    void changeEvent(QEvent *event) override;
    /// Takes the picture of a reloaded theme.
    void customEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    VemoMessageBarPrivate *m_d;
};
