// SPDX-License-Identifier: MIT
#include "gallery/sheetstage.h"
#include "gallery/demotexts.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemomask.h>
#include <vemo/vemosheet.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr int kFields = 7;

/// Adds some content below a sheet.
void fill(QWidget *window)
{
    auto *column = new QVBoxLayout(window);
    for (int i = 1; i <= kFields; ++i) {
        auto *field = new QLineEdit(demo("report_line").arg(i));
        field->setStyleSheet(getStyleSheet("component.lineedit"));
        field->setCursorPosition(0); // A narrow one shows its beginning.
        column->addWidget(field);
    }
    column->addStretch();
}

QString resultText(int code)
{
    const QMetaEnum buttons = QMetaEnum::fromType<QDialogButtonBox::StandardButtons>();
    const char *name = code == 0 ? "none" : buttons.valueToKey(code);
    return QString("Result: %1 (%2)").arg(name ? name : "?").arg(code);
}

} // namespace

QPixmap sheetOverWindow(const QSize &size, const std::function<VemoSheet *(QWidget *)> &newSheet)
{
    QWidget window;
    window.setObjectName("stage");
    window.setStyleSheet(withDefaultThemeColors("#stage { background: @canvas@; }"));
    window.resize(DPIinfo::scaled(size.width()), DPIinfo::scaled(size.height()));
    window.setAttribute(Qt::WA_DontShowOnScreen);
    fill(&window);
    VemoSheet *sheet = newSheet(&window);
    VemoMask::createMask(sheet, &window, maskShade());
    sheet->show();
    window.show();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return window.grab();
}

QColor maskShade()
{
    return StyleManager::getInstance().getColor("mask", QColor(0, 0, 0, 20));
}

VemoButton *newAskingButton(
    const QString &caption, QLabel *result, const std::function<int(QWidget *)> &ask)
{
    auto *button = new VemoButton(caption, VemoButton::DEFAULT);
    QObject::connect(button, &VemoButton::clicked, result, [=] {
        const QPointer<QLabel> held = result;
        result->setText("Waiting for an answer ...");
        const int code = ask(result->window());
        if (held)
            held->setText(resultText(code));
    });
    return button;
}
