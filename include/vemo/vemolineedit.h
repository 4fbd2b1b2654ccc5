// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;

/// A text field between two labels (a caption before it, a unit or hint after it), with an error
/// state for the style sheet to show and a check of the text that the host may supply.
///
/// Checking and showing are apart: validate() never changes the look, setError() does. The keyboard
/// focus goes to the field: setFocus(), Tab and the mnemonic of a label whose buddy the widget is
/// (as in a QFormLayout) all end there. The parts belong to the widget. It has no signals: connect
/// to those of getLineEdit().
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

public:
    /// Three empty parts in a row; looks their styles up.
    explicit VemoLineEdit(QWidget *parent = nullptr);

    /// The text of the field.
    QString getEditText() const;
    /// Sets the text of the field.
    void setEditText(const QString &text);

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

    /// Sets the field's dynamic property "error", by which style sheets can tell it.
    void setError(bool error);
    bool hasError() const; ///< false at first

    /// The check that validate() makes; null, as at first, accepts every text.
    void setValidator(bool (*validator)(const QString &));
    /// The check's answer for the present text; true without a check.
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

    QHBoxLayout *m_layout;
    QLabel *m_pre_label;
    QLabel *m_post_label;
    QLineEdit *m_line_edit;
    bool (*m_validator)(const QString &) = nullptr;
    QString m_announced;
};
