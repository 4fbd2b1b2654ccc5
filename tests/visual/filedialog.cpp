// SPDX-License-Identifier: MIT
#include "visual/filedialog.h"

#include "support/iswindows.h"
#include "visual/stage.h"

#include <vemo/imagemanager.h>

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QListView>
#include <QSettings>
#include <QSplitter>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int kPatience = 30000; // milliseconds, on a busy machine

/// Icons of the theme, not of the desktop. Qt asks for them in a thread of its own.
class Icons : public QFileIconProvider
{
public:
    using QFileIconProvider::icon;

    QIcon icon(const QFileInfo &info) const override { return info.isDir() ? m_folder : m_file; }

private:
    const QIcon m_folder = getGlobalIcon("folder");
    const QIcon m_file = getGlobalIcon("doc");
};

QFileDialog *newFileDialog(const QString &folder, Icons *icons)
{
    auto *dialog = new QFileDialog;
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setWindowFlags(Qt::Widget);
    dialog->setIconProvider(icons);
    dialog->setSidebarUrls({QUrl::fromLocalFile(folder + "/ab")});
    dialog->setViewMode(QFileDialog::List);
    dialog->setNameFilters({"abcd (*)"});
    dialog->setDirectory(folder);
    if (kIsWindows) { // The registry has the last sizes, for all programs.
        auto *splitter = dialog->findChild<QSplitter *>("splitter");
        splitter->setSizes(
            {splitter->widget(0)->sizeHint().width(), splitter->widget(1)->sizeHint().width()});
    }
    return dialog;
}

} // namespace

QImage fileDialogPicture()
{
    const QTemporaryDir home;
    // Qt reads the last size of the dialog from there, and writes it.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    // So long that it is shortened on every machine: all its characters look the same.
    const QString folder = home.filePath(QString(120, 'a'));
    QDir().mkpath(folder + "/ab");
    for (const char *name : {"/cd", "/ef"})
        QFile(folder + name).open(QIODevice::WriteOnly);

    Icons icons;
    auto *dialog = newFileDialog(folder, &icons);
    Stage stage(dialog, {480, 280});
    auto *list = dialog->findChild<QListView *>("listView");
    const auto rows = [&] { return list->model()->rowCount(list->rootIndex()); };
    if (!QTest::qWaitFor([&] { return rows() == 3; }, kPatience))
        return {};
    list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
    return stage.picture();
}
