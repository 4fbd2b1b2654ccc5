// SPDX-License-Identifier: MIT
#include "teawindow.h"

#include <vemo/ComponentStrings>
#include <vemo/DPIinfo>
#include <vemo/StyleManager>
#include <vemo/VemoButton>
#include <vemo/VemoIconButton>
#include <vemo/VemoLabel>
#include <vemo/VemoMessageSheet>

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 420; // design pixels
constexpr int kHeight = 340; // design pixels
constexpr int kMargin = 24; // design pixels

QString text(const char *key)
{
    return ComponentStrings::getInstance().getString(key);
}

} // namespace

TeaWindow::TeaWindow()
{
    // The rules go by this name: one for every QWidget would take the colour off the mask.
    setObjectName("TeaWindow");
    setStyleSheet(getStyleSheet("tea.window"));
    setWindowTitle(text("tea.title"));
    resize(DPIinfo::scaled(kWidth), DPIinfo::scaled(kHeight));

    auto *cup = new VemoIconButton("cup");
    cup->setAccessibleName(text("tea.brew"));
    auto *hint = new VemoLabel(text("tea.hint"));
    hint->setWordWrap(true);
    hint->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    auto *brew = new VemoButton(text("tea.brew"), VemoButton::APPLY);

    auto *row = new QHBoxLayout;
    row->setSpacing(DPIinfo::scaled(kMargin) / 2);
    row->addWidget(cup, 0, Qt::AlignTop);
    row->addWidget(hint);
    auto *column = new QVBoxLayout(this);
    const int margin = DPIinfo::scaled(kMargin);
    column->setContentsMargins(margin, margin, margin, margin);
    column->addLayout(row);
    column->addStretch();
    column->addWidget(brew, 0, Qt::AlignRight);

    connect(cup, SIGNAL(clicked()), this, SLOT(slotBrew()));
    connect(brew, SIGNAL(clicked()), this, SLOT(slotBrew()));
}

void TeaWindow::slotBrew()
{
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::Information, text("tea.ready"), this);
    sheet->open();
}
