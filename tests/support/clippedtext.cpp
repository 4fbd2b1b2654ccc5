// SPDX-License-Identifier: MIT
#include "support/clippedtext.h"

#include <vemo/dpiinfo.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr int kCursor = 2; // QLineEdit's own margin on either side, in pixels.

QString described(const QWidget *widget, const QString &text, const QSize &need, const QSize &room)
{
    return QString("%1 \"%2\" in %3: \"%4\" needs %5 x %6, has %7 x %8")
        .arg(widget->metaObject()->className(), widget->objectName(),
            widget->parentWidget() ? widget->parentWidget()->metaObject()->className() : "nothing",
            text)
        .arg(need.width())
        .arg(need.height())
        .arg(room.width())
        .arg(room.height());
}

/// Collects the texts that do not fit.
struct Findings
{
    QStringList lines;

    void compare(const QWidget *widget, const QString &text, const QSize &need, const QSize &room)
    {
        if (need.width() > room.width() || need.height() > room.height())
            lines += described(widget, text, need, room);
    }
};

/// The size of a line of text. The height is that of the glyphs, because lines in a fallback font
/// are so high that their empty edges exceed the available space.
QSize sizeOf(const QWidget *widget, const QString &text, int flags = Qt::TextShowMnemonic)
{
    const QFontMetrics metrics = widget->fontMetrics();
    return {metrics.size(flags, text).width(), metrics.tightBoundingRect(text).height()};
}

void look(const QLabel *label, Findings &findings)
{
    if (label->text().isEmpty())
        return;
    // The widest word must not be broken, so the size hint of a wrapped label has to fit as well.
    const QSize need = label->wordWrap()
        ? QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()))
        : label->sizeHint();
    findings.compare(label, label->text(), need, label->size());
}

/// Gives access to a protected member.
template <typename Widget> class Opened : public Widget
{
public:
    using Widget::initStyleOption;
};

void look(const QPushButton *button, Findings &findings)
{
    QStyleOptionButton option;
    (button->*&Opened<QPushButton>::initStyleOption)(&option);
    const QRect room =
        button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
    findings.compare(button, button->text(), sizeOf(button, button->text()), room.size());
}

/// Checks boxes with an indicator, and tool buttons: only their size hint includes the space that
/// the style adds around the text. spare is the part of the hint that is not needed.
void lookAtHint(const QAbstractButton *button, int spare, Findings &findings)
{
    if (!button->text().isEmpty())
        findings.compare(
            button, button->text(), button->sizeHint() - QSize(spare, 0), button->size());
}

void look(const QToolButton *button, Findings &findings)
{
    const int blanks = 2 * button->fontMetrics().horizontalAdvance(' ');
    if (button->toolButtonStyle() != Qt::ToolButtonIconOnly || button->icon().isNull())
        lookAtHint(button, blanks, findings);
}

QSize contentsOf(const QLineEdit *edit)
{
    QStyleOptionFrame option;
    (edit->*&Opened<QLineEdit>::initStyleOption)(&option);
    const QRect rect = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    return rect.marginsRemoved(edit->textMargins()).size() - QSize(2 * kCursor, 0);
}

void look(const QLineEdit *edit, Findings &findings)
{
    const QString text = edit->placeholderText();
    if (edit->text().isEmpty() && !text.isEmpty())
        findings.compare(edit, text, sizeOf(edit, text, 0), contentsOf(edit));
}

void look(const QComboBox *box, Findings &findings)
{
    const QString text = box->currentText();
    if (const QLineEdit *edit = box->lineEdit()) {
        findings.compare(box, text, sizeOf(edit, text, 0), contentsOf(edit));
        return;
    }
    QStyleOptionComboBox option;
    (box->*&Opened<QComboBox>::initStyleOption)(&option);
    const QRect room = box->style()->subControlRect(
        QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
    // By the bounding box of its glyphs, as the size hint of a box measures it.
    findings.compare(box, text, box->fontMetrics().tightBoundingRect(text).size(), room.size());
}

void look(const QHeaderView *header, Findings &findings)
{
    for (int section = 0; section < header->count(); ++section) {
        const bool isWide = header->orientation() == Qt::Horizontal;
        const int need = header->sectionSizeHint(section);
        const int room = header->sectionSize(section);
        const QString text = header->model()->headerData(section, header->orientation()).toString();
        if (!header->isSectionHidden(section) && isWide && !text.isEmpty())
            findings.compare(header, text, {need, 0}, {room, 0});
    }
}

/// Checks the days and weekdays of a calendar.
void look(const QTableView *table, Findings &findings)
{
    if (!table->objectName().startsWith("qt_calendar_"))
        return;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        for (int column = 0; column < table->model()->columnCount(); ++column) {
            const QModelIndex cell = table->model()->index(row, column);
            const QRect room = table->visualRect(cell);
            const QString text = cell.data().toString();
            if (!room.isEmpty())
                findings.compare(table, text, sizeOf(table, text, 0), room.size());
        }
    }
}

template <typename Widget> bool lookAs(const QWidget *widget, Findings &findings)
{
    const auto *one = qobject_cast<const Widget *>(widget);
    if (one)
        look(one, findings);
    return one;
}

void lookAt(const QWidget *widget, Findings &findings)
{
    if (qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QRadioButton *>(widget))
        lookAtHint(static_cast<const QAbstractButton *>(widget), 0, findings);
    else
        (void)(lookAs<QLabel>(widget, findings) || lookAs<QPushButton>(widget, findings)
            || lookAs<QToolButton>(widget, findings) || lookAs<QLineEdit>(widget, findings)
            || lookAs<QComboBox>(widget, findings) || lookAs<QHeaderView>(widget, findings)
            || lookAs<QTableView>(widget, findings));
}

} // namespace

QStringList clippedTexts(QWidget *root)
{
    Findings findings;
    lookAt(root, findings);
    const QList<QWidget *> widgets = root->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->isVisible())
            lookAt(widget, findings);
    }
    return findings.lines;
}

QStringList languagesToCheck(const QStringList &codes)
{
    if (DPIinfo::getInstance().getDPI() == 1)
        return codes;
    QStringList chosen;
    for (const char *code : {"ara", "cht", "deu", "rus"}) {
        if (codes.contains(code))
            chosen += code;
    }
    return chosen;
}
