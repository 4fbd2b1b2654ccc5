// SPDX-License-Identifier: MIT
#include "accessibility/buswalk.h"

#include "gallery/commandline.h"
#include "gallery/gallerywindow.h"
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/pagelist.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int kStartTime = 60000; // milliseconds

/// The least number of controls by role: a walk that reaches nothing would not find any flaws.
const QMap<QString, int> &minimumInGallery()
{
    static const QMap<QString, int> counts {{"push button", 100}, {"check box", 10},
        {"radio button", 3}, {"combo box", 8}, {"text", 8}, {"table", 5}, {"tree", 2}};
    return counts;
}

/// Shows every page in a window of its own, and the window that shows them one at a time.
int showGallery()
{
    startDefaultTheme();
    applyDefaultThemeStyle(*qApp);
    installGalleryStyle();
    const Options options;
    std::vector<std::unique_ptr<QWidget>> windows;
    for (const PageEntry &entry : pages()) {
        auto page = std::make_unique<Page>(entry.title, options);
        page->setWindowTitle(entry.title);
        entry.build(*page);
        windows.push_back(std::move(page));
    }
    windows.push_back(std::make_unique<GalleryWindow>(options));
    for (const auto &window : windows)
        window->show();
    return QApplication::exec();
}

/// A button without flaws, and controls that lack one thing each.
int showFlaws()
{
    QWidget window;
    window.setWindowTitle("Flaws");
    QVBoxLayout layout(&window);
    layout.addWidget(new QPushButton("Flawless"));
    layout.addWidget(new QPushButton);
    layout.addWidget(new QPushButton("<b>Bold</b>"));
    auto *roleless = new QWidget;
    roleless->setFocusPolicy(Qt::StrongFocus);
    roleless->setAccessibleName("Something");
    layout.addWidget(roleless);
    auto *inert = new QToolButton;
    inert->setText("Opens a menu");
    inert->setPopupMode(QToolButton::InstantPopup);
    layout.addWidget(inert);
    auto *empty = new QTableWidget(1, 2);
    empty->setAccessibleName("Nothing");
    layout.addWidget(empty);
    window.show();
    return QApplication::exec();
}

/// Two windows, each with an open sheet.
int showSheets()
{
    startDefaultTheme();
    QWidget confirming;
    confirming.resize(700, 500);
    auto *message = new VemoMessageSheet(VemoMessageSheet::ConfirmReset, "Delete the folder?",
        "It cannot be restored.", &confirming);
    message->setDoubleConfirmCheckBox(true, "I know.");
    QWidget prompting;
    prompting.resize(700, 500);
    auto *input = new VemoInputSheet("Name of the new folder:", &prompting);
    const std::vector<std::pair<QWidget *, QWidget *>> windows {
        {&confirming, message}, {&prompting, input}};
    for (const auto &[window, sheet] : windows) {
        window->show();
        sheet->show();
    }
    return QApplication::exec();
}

int runProgram(const QString &scenario)
{
    static const QMap<QString, int (*)()> scenarios {
        {"flaws", showFlaws}, {"gallery", showGallery}, {"sheets", showSheets}};
    return scenarios.value(scenario)();
}

void report(const char *what, const BusWalk &walk)
{
    for (const QString &flaw : walk.flaws)
        qInfo("%s", qPrintable(flaw));
    qInfo("%s: %d of %d controls, among %d objects, have role, name, state and action", what,
        walk.flawless, walk.controls, walk.objects);
}

} // namespace

/// What a screen reader learns about whole programs over the accessibility bus.
class AccessibilityBusTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theWalkFindsEveryFlaw();
    void everyControlOfTheGalleryCanBeUsed();
    void everyControlOfAnOpenSheetCanBeUsed();
    void everyControlOfTheFileBrowserCanBeUsed();

private:
    /// Starts this test program as a child on the bus.
    bool startChild(const QString &scenario);
    /// Waits until the program has registered itself on the bus.
    BusObject program() const;

    std::unique_ptr<AccessibilityBus> m_bus;
};

void AccessibilityBusTest::init()
{
    VemoTest::init();
    m_bus = std::make_unique<AccessibilityBus>();
    QVERIFY(m_bus->start());
}

void AccessibilityBusTest::cleanup()
{
    m_bus.reset();
    VemoTest::cleanup();
}

bool AccessibilityBusTest::startChild(const QString &scenario)
{
    return m_bus->startProgram(
        QCoreApplication::applicationFilePath(), {}, childProcessEnvironment(scenario, {}));
}

BusObject AccessibilityBusTest::program() const
{
    const auto isThere = [this] { return !m_bus->applications().isEmpty(); };
    return QTest::qWaitFor(isThere, kStartTime) ? m_bus->applications().first() : BusObject();
}

void AccessibilityBusTest::theWalkFindsEveryFlaw()
{
    QVERIFY(startChild("flaws"));
    const BusObject child = program();
    QVERIFY(!child.service.isEmpty());
    const BusWalk found = walk(*m_bus, child);
    for (const QString &flaw : found.flaws)
        qInfo("%s", qPrintable(flaw));
    const QStringList expected {"has no name", "has mark-up in its name", "has no role",
        "has no action", "has no cell with a name"};
    QCOMPARE(found.flaws.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i)
        QVERIFY2(found.flaws.at(i).contains(expected.at(i)), qPrintable(found.flaws.at(i)));
}

void AccessibilityBusTest::everyControlOfTheGalleryCanBeUsed()
{
    QVERIFY(startChild("gallery"));
    const BusObject gallery = program();
    QVERIFY(!gallery.service.isEmpty());
    const int windows = pageTitles().size() + 1;
    QVERIFY(
        QTest::qWaitFor([&] { return m_bus->childrenOf(gallery).size() == windows; }, kStartTime));
    const BusWalk found = walk(*m_bus, gallery);
    report("Gallery", found);
    for (auto role = minimumInGallery().begin(); role != minimumInGallery().end(); ++role)
        QVERIFY2(found.roles[role.key()] >= role.value(), qPrintable(role.key()));
    QCOMPARE(found.flaws.size(), 0);
    QCOMPARE(m_bus->roleOf(m_bus->childrenOf(gallery).last()), QString("frame"));
}

void AccessibilityBusTest::everyControlOfAnOpenSheetCanBeUsed()
{
    QVERIFY(startChild("sheets"));
    const BusObject child = program();
    QVERIFY(!child.service.isEmpty());
    const BusWalk found = walk(*m_bus, child);
    report("Sheets", found);
    QCOMPARE(found.roles["dialog"], 2);
    QVERIFY(found.controls >= 7);
    QCOMPARE(found.flaws.size(), 0);
}

void AccessibilityBusTest::everyControlOfTheFileBrowserCanBeUsed()
{
#ifdef VEMO_FILEBROWSER
    const QTemporaryDir folder;
    for (const char *name : {"notes.txt", "picture.png", "table.ods"}) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QDir(folder.path()).mkdir("letters"));
    QVERIFY(m_bus->startProgram(VEMO_FILEBROWSER, {folder.path()}));
    const BusObject browser = program();
    QVERIFY(!browser.service.isEmpty());
    const auto isListed = [&] {
        return !findObject(*m_bus, browser, "cell", "notes.txt").service.isEmpty();
    };
    QVERIFY(QTest::qWaitFor(isListed, kStartTime));
    const BusWalk found = walk(*m_bus, browser);
    report("File browser", found);
    QVERIFY(found.controls > 40);
    QCOMPARE(found.flaws.size(), 0);
    for (auto name = found.names.begin(); name != found.names.end(); ++name)
        QVERIFY2(name.value() == 1, qPrintable("more than one " + name.key()));
    QCOMPARE(m_bus->roleOf(m_bus->childrenOf(browser).value(0)), QString("frame"));
#else
    QSKIP("The file browser is not built.");
#endif
}

VEMO_TEST_MAIN_WITH_CHILD(AccessibilityBusTest, runProgram)
#include "tst_accessibilitybus.moc"
