// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QWidget>

#include <functional>

class QHBoxLayout;
class QLabel;
class QLineEdit;

/// A text field between two labels (a caption before it, a unit or hint after it), with an error
/// state for the style sheet to show and a check of the text that the host may supply.
///
/// Checking and showing are apart: validate() never changes the look, setError() does. The keyboard
/// focus goes to the field: setFocus(), Tab and the mnemonic of a label whose buddy the widget is
/// (as in a QFormLayout) all end there. The parts belong to the widget. It has no signals: connect
/// to those of getLineEdit(), which has all the rest of QLineEdit as well.
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
    Q_PROPERTY(QString preText READ preText WRITE setPreText)
    Q_PROPERTY(QString editText READ getEditText WRITE setEditText)
    Q_PROPERTY(QString postText READ postText WRITE setPostText)
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(QString errorText READ errorText WRITE setErrorText)
    Q_PROPERTY(bool clearButtonEnabled READ isClearButtonEnabled WRITE setClearButtonEnabled)
    Q_PROPERTY(bool captionsVisible READ areCaptionsVisible WRITE setCaptionsVisible)

public:
    /// Three empty parts in a row; looks their styles up.
    explicit VemoLineEdit(QWidget *parent = nullptr);

    /// The text of the field.
    QString getEditText() const;
    /// Sets the text of the field.
    void setEditText(const QString &text);

    QString text() const; ///< getEditText() by Qt's name
    void setText(const QString &text); ///< setEditText() by Qt's name
    void clear(); ///< empties the field
    void selectAll(); ///< selects the text of the field
    bool isReadOnly() const; ///< of the field; false at first
    void setReadOnly(bool readOnly); ///< of the field
    int maxLength() const; ///< of the field, in characters
    void setMaxLength(int length); ///< of the field, in characters

    /// The field. Unless the host names it for assistive tools, its name is the first of these that
    /// is not empty: the accessible name of this widget, the text of the label before the field,
    /// the text of the label whose buddy this widget is. Mark-up and mnemonics are left out.
    QLineEdit *getLineEdit() const { return m_line_edit; }

    /// The label before the field. Both labels start empty, and empty still take their place.
    QLabel *getPreLabel() const { return m_pre_label; }
    /// The label after the field, such as a unit.
    QLabel *getPostLabel() const { return m_post_label; }

    QString preText() const; ///< of the label before the field
    void setPreText(const QString &text); ///< sets that of the label before the field
    QString postText() const; ///< of the label after the field
    void setPostText(const QString &text); ///< sets that of the label after the field
    QString placeholderText() const; ///< what the empty field shows
    void setPlaceholderText(const QString &text); ///< sets what the empty field shows

    /// Whether both labels have a place in the row; true at first. In a form, whose own labels are
    /// the captions, fields without them line up with others. A hidden label still names the field.
    void setCaptionsVisible(bool visible);
    bool areCaptionsVisible() const; ///< whether both labels have a place in the row

    /// A button at the end of the field that empties it, shown while there is a text. False at
    /// first. Looks up the picture "bt_close" and the string "accessible_clear".
    void setClearButtonEnabled(bool enabled);
    bool isClearButtonEnabled() const; ///< whether the field has a button that empties it

    /// Sets the field's dynamic property "error", by which style sheets can tell it.
    void setError(bool error);
    bool hasError() const; ///< false at first

    /// What is wrong, plain text; empty at first. It appears below the field, in lines of its own,
    /// while the field has the error state, and is the field's description for assistive tools.
    /// Looks up the section "component.lineedit_error".
    void setErrorText(const QString &text);
    QString errorText() const { return m_error_text; } ///< what is wrong

    /// The check that validate() makes; null, as at first, accepts every text.
    void setValidator(bool (*validator)(const QString &));
    /// A check that may capture; an empty function, as at first, accepts every text. validate()
    /// makes this one after the validator's.
    void setCheck(std::function<bool(const QString &)> check);
    /// The answer of both checks for the present text; true without any.
    bool validate() const;

    /// Around the parts, in design pixels; all 0 at first.
    void setMargins(int left, int top, int right, int bottom);
    /// Between the parts, in design pixels; 0 at first.
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
    QLabel *m_error_label = nullptr; ///< below the layout; made with the first text
    QString m_error_text;
    QString m_own_description; ///< the field's, while the error text takes its place
    bool m_is_error_described = false;
    int m_error_height = 0; ///< of the widget's lower margin, in screen pixels
};
