// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QWidget>

#include <functional>

class QHBoxLayout;
class QLabel;
class QLineEdit;

/// A text field between two labels (a caption before it, a unit or hint after it), with an error
/// state that the style sheet shows and an optional validator.
///
/// Validation does not change the look: validate() only checks the text, and setError() shows the
/// result. setFocus(), Tab and the mnemonic of a label whose buddy is this widget (as in a
/// QFormLayout) give the keyboard focus to the field. The parts belong to the widget. It has no
/// signals: connect to those of getLineEdit(), which also has all other functions of QLineEdit.
///
/// If a line of its font is higher than the section allows, the field is higher by as much.
///
/// Requires: style files; a missing section ("component.lineedit", "component.lineedit_label")
/// leaves its part plain, with a warning.
///
///     auto *days = new VemoLineEdit(page);
///     days->getPreLabel()->setText(tr("Keep for"));
///     days->setValidator([](const QString &text) { return text.toInt() > 0; });
///     days->setError(!days->validate());
///
/// \image html fields-captions-and-units.png
class VEMO_EXPORT VemoLineEdit : public QWidget
{
    Q_OBJECT
    /// The text of the label before the field.
    Q_PROPERTY(QString preText READ preText WRITE setPreText)
    /// The text of the field.
    Q_PROPERTY(QString editText READ getEditText WRITE setEditText)
    /// The text of the label after the field.
    Q_PROPERTY(QString postText READ postText WRITE setPostText)
    /// The text shown in the empty field.
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    /// The error message.
    Q_PROPERTY(QString errorText READ errorText WRITE setErrorText)
    /// Whether the field has a button that clears it.
    Q_PROPERTY(bool clearButtonEnabled READ isClearButtonEnabled WRITE setClearButtonEnabled)
    /// Whether the field hides its text and has a button that shows it.
    Q_PROPERTY(
        bool passwordButtonEnabled READ isPasswordButtonEnabled WRITE setPasswordButtonEnabled)
    /// Whether the labels are visible.
    Q_PROPERTY(bool captionsVisible READ areCaptionsVisible WRITE setCaptionsVisible)

public:
    /// Creates three empty parts in a row and looks up their styles.
    explicit VemoLineEdit(QWidget *parent = nullptr);

    /// The text of the field.
    QString getEditText() const;
    /// Sets the text of the field.
    void setEditText(const QString &text);

    QString text() const; ///< same as getEditText(), named as in Qt
    void setText(const QString &text); ///< same as setEditText(), named as in Qt
    void clear(); ///< clears the field
    void selectAll(); ///< selects the text of the field
    bool isReadOnly() const; ///< of the field; initially false
    void setReadOnly(bool readOnly); ///< of the field
    int maxLength() const; ///< of the field, in characters
    void setMaxLength(int length); ///< of the field, in characters

    /// The field. Unless the host sets its accessible name, that is the first of these that is not
    /// empty: the accessible name of this widget, the text of the label before the field, the text
    /// of the label whose buddy this widget is. Mark-up and mnemonics are left out.
    QLineEdit *getLineEdit() const { return m_line_edit; }

    /// The label before the field. Both labels are initially empty, and take part in the layout
    /// even if empty.
    QLabel *getPreLabel() const { return m_pre_label; }
    /// The label after the field, such as a unit.
    QLabel *getPostLabel() const { return m_post_label; }

    QString preText() const; ///< text of the label before the field
    void setPreText(const QString &text); ///< sets the text of the label before the field
    QString postText() const; ///< text of the label after the field
    void setPostText(const QString &text); ///< sets the text of the label after the field
    QString placeholderText() const; ///< text shown in the empty field
    void setPlaceholderText(const QString &text); ///< sets the text shown in the empty field

    /// Sets whether the labels are visible, initially true. In forms, which have their own labels,
    /// fields without captions are aligned with others. A hidden label still names the field.
    void setCaptionsVisible(bool visible);
    bool areCaptionsVisible() const; ///< whether the labels are visible

    /// Sets whether the end of the field has a button that clears it, initially false. The button
    /// is hidden if the field is empty. Looks up the picture "bt_close" and the string
    /// "accessible_clear".
    void setClearButtonEnabled(bool enabled);
    bool isClearButtonEnabled() const; ///< whether the field has a button that clears it

    /// Sets whether the field hides its text, as for a password, and has a button at its end that
    /// shows the text while it is checked. Initially false. Turning it off shows the text. Looks up
    /// the pictures "bt_show" and "bt_hide" and the string "accessible_show_password".
    void setPasswordButtonEnabled(bool enabled);
    bool isPasswordButtonEnabled() const; ///< whether the field has a button that shows its text

    /// Sets the dynamic property "error" of the field, which style sheets can match.
    void setError(bool error);
    bool hasError() const; ///< initially false

    /// Sets the error message, a plain text that is initially empty. It is shown below the field
    /// while the field has the error state, and is then the accessible description of the field.
    /// Looks up the section "component.lineedit_error".
    void setErrorText(const QString &text);
    QString errorText() const { return m_error_text; } ///< the error message

    /// Sets the function that validate() calls; null, which is the default, accepts every text.
    void setValidator(bool (*validator)(const QString &));
    /// Sets a check that may capture; an empty function, which is the default, accepts every text.
    /// validate() calls it after the validator.
    void setCheck(std::function<bool(const QString &)> check);
    /// The result of the validator and the check for the current text; true if there are none.
    bool validate() const;

    /// Sets the margins around the parts in design pixels; initially all 0.
    void setMargins(int left, int top, int right, int bottom);
    /// Sets the spacing between the parts in design pixels; initially 0.
    void setSpacing(int spacing);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void announceCaption();
    void showErrorText();
    void placeErrorText();

    QHBoxLayout *m_layout;
    QLabel *m_pre_label;
    QLabel *m_post_label;
    QLineEdit *m_line_edit;
    bool (*m_validator)(const QString &) = nullptr;
    QString m_announced;
    std::function<bool(const QString &)> m_check;
    QLabel *m_error_label = nullptr; ///< below the layout; created for the first text
    QString m_error_text;
    QString m_own_description; ///< the field's own, while the error text replaces it
    bool m_is_error_described = false;
    int m_error_height = 0; ///< of the widget's lower margin, in screen pixels
};
