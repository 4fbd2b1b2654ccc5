// SPDX-License-Identifier: MIT
#include "settingswindow.h"

#include <vemo/DPIinfo>
#include <vemo/VemoButton>
#include <vemo/VemoDateSelector>
#include <vemo/VemoFootbar>
#include <vemo/VemoInputSheet>
#include <vemo/VemoLineEdit>
#include <vemo/VemoMessageSheet>
#include <vemo/VemoTimeComboBox>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int kWidth = 620;
constexpr int kMargin = 16;
constexpr int kGap = 12;
constexpr int kListHeight = 96;

QBoxLayout *spaced(QBoxLayout *layout, int margin)
{
    const int scaledMargin = DPIinfo::scaled(margin);
    layout->setContentsMargins(scaledMargin, scaledMargin, scaledMargin, scaledMargin);
    layout->setSpacing(DPIinfo::scaled(kGap));
    return layout;
}

QFormLayout *newForm(QWidget *parent)
{
    auto *form = new QFormLayout(parent);
    const int margin = DPIinfo::scaled(kMargin);
    form->setContentsMargins(margin, margin, margin, margin);
    form->setSpacing(DPIinfo::scaled(kGap));
    return form;
}

/// QFormLayout limits the height of a caption, so that it would be higher than the field's text.
template <typename Field> void addField(QFormLayout *form, const QString &caption, Field *field)
{
    form->addRow(caption, field);
    form->labelForField(field)->setMinimumHeight(field->sizeHint().height());
}

QBoxLayout *newRow(const QList<QWidget *> &widgets)
{
    QBoxLayout *row = spaced(new QHBoxLayout, 0);
    for (QWidget *widget : widgets)
        row->addWidget(widget);
    row->addStretch();
    return row;
}

QListWidgetItem *newFolder(const QString &path, QListWidget *list)
{
    auto *item = new QListWidgetItem(path, list);
    item->setCheckState(Qt::Checked);
    return item;
}

QWidget *newLimitGroup()
{
    auto *group = new QGroupBox("Limit the bandwidth");
    group->setCheckable(true);
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(1, 100);
    slider->setValue(40);
    auto *number = new QSpinBox;
    number->setRange(1, 100);
    number->setSuffix(" Mbit/s");
    number->setValue(slider->value());
    QObject::connect(slider, SIGNAL(valueChanged(int)), number, SLOT(setValue(int)));
    QObject::connect(number, SIGNAL(valueChanged(int)), slider, SLOT(setValue(int)));
    QBoxLayout *row = spaced(new QHBoxLayout(group), kMargin);
    row->addWidget(slider);
    row->addWidget(number);
    return group;
}

} // namespace

SettingsWindow::SettingsWindow()
{
    setWindowTitle("Backup settings");
    m_pages = new QTabWidget;
    m_pages->addTab(newFoldersPage(), "Folders");
    m_pages->addTab(newSchedulePage(), "Schedule");
    QBoxLayout *column = spaced(new QVBoxLayout(this), kMargin);
    column->addWidget(m_pages);
    column->addWidget(newFoot());
    resize(DPIinfo::scaled(kWidth), 0);
}

void SettingsWindow::showSchedule()
{
    m_pages->setCurrentIndex(1);
}

QWidget *SettingsWindow::newFoldersPage()
{
    auto *page = new QWidget;
    QBoxLayout *column = spaced(new QVBoxLayout(page), kMargin);
    column->addWidget(newFolderGroup());
    column->addWidget(newDestinationGroup());
    column->addStretch();
    return page;
}

QWidget *SettingsWindow::newFolderGroup()
{
    auto *group = new QGroupBox("What is backed up");
    m_folders = new QListWidget;
    m_folders->setFixedHeight(DPIinfo::scaled(kListHeight));
    newFolder("Documents", m_folders);
    newFolder("Pictures", m_folders)->setCheckState(Qt::Unchecked);
    newFolder("Projects", m_folders);
    m_folders->setCurrentRow(0);
    auto *remove = new VemoButton("Remove", VemoButton::RED);
    m_patterns = new QComboBox;
    m_patterns->addItems({"*.tmp", "*.bak", "node_modules"});
    auto *add = new VemoButton("Add pattern", VemoButton::DEFAULT);
    connect(remove, SIGNAL(clicked()), this, SLOT(slotRemoveFolder()));
    connect(add, SIGNAL(clicked()), this, SLOT(slotAddPattern()));

    QFormLayout *form = newForm(group);
    form->addRow(m_folders);
    addField(form, "Leave out:", newRow({m_patterns, add, remove}));
    return group;
}

QWidget *SettingsWindow::newDestinationGroup()
{
    auto *group = new QGroupBox("Where to");
    auto *address = new VemoLineEdit;
    address->setEditText("backup.example.org");
    address->setCaptionsVisible(false);
    address->setMargins(0, 0, 0, 0);
    auto *used = new QProgressBar;
    used->setValue(62);
    auto *encrypt = new QCheckBox("Encrypt");
    encrypt->setChecked(true);
    auto *level = new QComboBox;
    level->addItems({"Fast compression", "Best compression", "No compression"});

    QFormLayout *form = newForm(group);
    addField(form, "Server:", address);
    addField(form, "Used:", used);
    addField(form, "Options:", newRow({encrypt, level}));
    return group;
}

QWidget *SettingsWindow::newSchedulePage()
{
    auto *page = new QWidget;
    auto *daily = new QRadioButton("Every day");
    auto *weekly = new QRadioButton("Every week");
    weekly->setChecked(true);
    auto *from = new VemoDateSelector(QString("Any day"));
    auto *time = new VemoTimeComboBox;
    time->setTimes(QTime(0, 0), QTime(23, 30), 30);
    time->setTime(QTime(2, 0));
    auto *versions = new QSpinBox;
    versions->setRange(1, 64);
    versions->setValue(8);

    QFormLayout *form = newForm(page);
    addField(form, "How often:", newRow({daily, weekly}));
    addField(form, "From:", newRow({from, time}));
    addField(form, "Versions to keep:", newRow({versions}));
    form->addRow(newLimitGroup());
    return page;
}

QWidget *SettingsWindow::newFoot()
{
    auto *foot = new VemoFootbar;
    auto *save = new VemoButton("Save", VemoButton::APPLY);
    auto *close = new VemoButton("Close", VemoButton::CANCEL);
    foot->pushRightWidget(close);
    foot->pushRightWidget(save);
    foot->init();
    connect(save, SIGNAL(clicked()), this, SLOT(slotSave()));
    connect(close, SIGNAL(clicked()), this, SLOT(close()));
    return foot;
}

void SettingsWindow::slotAddPattern()
{
    auto *sheet = new VemoInputSheet("Leave out files with names like:", this);
    sheet->open([this, sheet](int result) {
        if (result == QDialogButtonBox::Ok && !sheet->getContent().isEmpty())
            m_patterns->addItem(sheet->getContent());
    });
}

void SettingsWindow::slotRemoveFolder()
{
    const QListWidgetItem *item = m_folders->currentItem();
    if (!item)
        return;
    const QString question = QString("Stop backing up %1?").arg(item->text().toHtmlEscaped());
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::WarningConfirm, question, this);
    sheet->open([this](int result) {
        if (result == QDialogButtonBox::Apply)
            delete m_folders->currentItem();
    });
}

void SettingsWindow::slotSave()
{
    auto *sheet =
        new VemoMessageSheet(VemoMessageSheet::Information, "The settings are saved.", this);
    sheet->open();
}
