// SPDX-License-Identifier: MIT
#include "sheets/checkrow_p.h"

#include "core/scaling_p.h"

#include <vemo/clickablelabel.h>
#include <vemo/stylemanager.h>

#include <QCheckBox>
#include <QHBoxLayout>

#include <algorithm>

namespace {

// In design pixels.
constexpr double kSpacing = 8;
constexpr double kHeight = 32;

} // namespace

CheckRow newCheckRow(QWidget *container, const char *boxKey, const char *labelKey)
{
    auto *box = new QCheckBox(container);
    box->setStyleSheet(getStyleSheet(boxKey));
    box->setFixedHeight(scaled(kHeight));

    auto *label = new ClickableLabel(QString(), container);
    label->setStyleSheet(getStyleSheet(labelKey));
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    QObject::connect(label, SIGNAL(clicked()), box, SLOT(click()));

    auto *row = new QHBoxLayout(container);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(kSpacing));
    row->addWidget(box);
    row->addWidget(label);
    container->show();
    return {box, label};
}

void fitCaption(const CheckRow &row, int width)
{
    row.label->ensurePolished();
    row.label->setMinimumHeight(0);
    const int captionWidth = width - row.box->sizeHint().width() - scaled(kSpacing);
    row.label->setMinimumHeight(row.label->heightForWidth(std::max(0, captionWidth)));
}

void setCaption(const CheckRow &row, const QString &text)
{
    row.label->setText(text);
    row.box->setAccessibleName(text);
}
