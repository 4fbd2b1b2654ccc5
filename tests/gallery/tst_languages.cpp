// SPDX-License-Identifier: MIT
// The gallery's pages in every language, at the window's own size.
#include "core/scaling_p.h"
#include "gallery/demotexts.h"
#include "gallery/gallerywindow.h"
#include "gallery/languages.h"
#include "gallery/look.h"
#include "support/clippedtext.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QLayout>
#include <QScopeGuard>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTreeWidget>

namespace {

const QString kText =
    QStringLiteral("A text of some length"); // clazy:exclude=non-pod-global-static

} // namespace

class LanguagesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void anUnknownDemoTextIsItsKey();
    void aSizeIsIsolatedFromRightToLeft();
    void aDesktopLanguageBringsNumbersAndCharacters();
    void pagesAreWholeAndAsWideAsTheWindow_data() { addLanguages(); }
    void pagesAreWholeAndAsWideAsTheWindow();
    void aTreeShowsItsTextsWholeInArabic();
    void aMessageSheetIsWhole_data() { addLanguages(); }
    void aMessageSheetIsWhole();
    void aCalendarShowsEveryMonthWhole_data() { addLanguages(); }
    void aCalendarShowsEveryMonthWhole();

private:
    static void addLanguages();

    QTemporaryDir m_userFolder;
};

namespace {

QMap<QString, QString> stringsOf(const QString &code)
{
    QFile file(QString(":/vemo/theme/strings/%1.json").arg(code));
    QMap<QString, QString> strings;
    if (!file.open(QIODevice::ReadOnly))
        return strings;
    const QJsonObject table = QJsonDocument::fromJson(file.readAll()).object();
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        strings.insert(entry.key(), entry->toString());
    return strings;
}

void speak(const QString &code)
{
    ComponentStrings::getInstance().installStrings(stringsOf(code));
    setDesktopLanguage(code);
    setDemoLanguage(code);
}

} // namespace

void LanguagesTest::initTestCase()
{
    QApplication::setPalette(defaultThemePalette());
    QFont font = QApplication::font();
    font.setPointSize(10); // As on a desktop; the offscreen platform's is larger.
    QApplication::setFont(font);
    startDefaultTheme();
    installGalleryStyle();
}

void LanguagesTest::addLanguages()
{
    QTest::addColumn<QString>("code");
    QStringList codes;
    for (const Language &language : languages())
        codes += language.code;
    for (const QString &code : languagesToCheck(codes))
        QTest::newRow(qPrintable(code)) << code;
}

void LanguagesTest::anUnknownDemoTextIsItsKey()
{
    QCOMPARE(demo("no_such_text"), QString("no_such_text"));
    setDemoLanguage("deu");
    QCOMPARE(demo("save"), QString("Speichern"));
    setDemoLanguage("enu");
    QCOMPARE(demo("save"), QString("Save"));
}

void LanguagesTest::aSizeIsIsolatedFromRightToLeft()
{
    QCOMPARE(demoSize(1, "KB"), QString("1 KB"));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QString size = demoSize(1, "KB");
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(size, QChar(0x2066) + QString("1 KB") + QChar(0x2069));
}

void LanguagesTest::aDesktopLanguageBringsNumbersAndCharacters()
{
    setDesktopLanguage("cht");
    QCOMPARE(QApplication::font().families().last(), QString("Noto Sans CJK TC"));
    setDesktopLanguage("deu");
    QCOMPARE(QApplication::font().families().size(), 1);
    QCOMPARE(QLocale().toString(1000), QString("1.000"));
    QCOMPARE(demoSize(1.2, "MB"), QString("1,2 MB"));
    setDesktopLanguage("no such code");
    QCOMPARE(QLocale().name(), QString("en_US"));
}

// As wide as the window at its default size, so that no page needs a sideways scroll bar.
void LanguagesTest::pagesAreWholeAndAsWideAsTheWindow()
{
    QFETCH(QString, code);
    speak(code);
    Options options;
    options.language = code;
    options.userFolder = m_userFolder.path();
    GalleryWindow window(options);
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    window.show();
    const QSize size = window.size();
    QStringList faults;
    for (int index = 0; index < pageTitles().size(); ++index) {
        window.resize(size);
        window.showPage(index);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        const auto *area =
            qobject_cast<QScrollArea *>(window.findChild<QStackedWidget *>()->currentWidget());
        const int beyond = area->widget()->minimumSizeHint().width() - area->viewport()->width();
        if (beyond > 0)
            faults += QString("%1 is too wide by %2 px").arg(pageTitles().at(index)).arg(beyond);
        window.growToPage();
        for (const QString &line : clippedTexts(&window))
            faults += QString("%1: %2").arg(pageTitles().at(index), line);
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

// The calendar beside it has long names of days.
void LanguagesTest::aTreeShowsItsTextsWholeInArabic()
{
    speak("ara");
    const auto back = qScopeGuard([] { speak("enu"); });
    Options options;
    options.language = "ara";
    options.userFolder = m_userFolder.path();
    GalleryWindow window(options);
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    window.showPage(pageTitles().indexOf("Qt tabs and views"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const auto *area =
        qobject_cast<QScrollArea *>(window.findChild<QStackedWidget *>()->currentWidget());
    auto *tree = area->widget()->findChild<QTreeWidget *>();
    for (QTreeWidgetItemIterator item(tree); *item; ++item) {
        const QModelIndex index =
            tree->indexAt(tree->visualItemRect(*item).center()).siblingAtColumn(0);
        const int wanted = tree->fontMetrics().horizontalAdvance((*item)->text(0));
        QVERIFY2(
            tree->visualRect(index).width() > wanted + scaled(10), qPrintable((*item)->text(0)));
    }
}

void LanguagesTest::aMessageSheetIsWhole()
{
    using Sheet = VemoMessageSheet;
    QFETCH(QString, code);
    speak(code);
    for (const auto type : {Sheet::App, Sheet::Information, Sheet::Warning, Sheet::Confirm,
             Sheet::ConfirmReset, Sheet::Upgrading, Sheet::WarningConfirm}) {
        QWidget window;
        window.resize(scaled(420), scaled(320));
        Sheet sheet(type, kText, kText, &window);
        sheet.setDoubleConfirmCheckBox(type == Sheet::WarningConfirm, kText);
        window.show();
        sheet.show();
        QCOMPARE(clippedTexts(&sheet).join('\n'), QString());
    }
    QWidget window;
    VemoInputSheet input(kText, &window);
    window.show();
    input.show();
    QCOMPARE(clippedTexts(&input).join('\n'), QString());
}

void LanguagesTest::aCalendarShowsEveryMonthWhole()
{
    QFETCH(QString, code);
    speak(code);
    VemoCalanderView calendar(nullptr);
    calendar.setStyleSheet(
        getStyleSheet("component.date_selector") + getStyleSheet("component.menu"));
    calendar.show();
    for (int month = 1; month <= 12; ++month) {
        calendar.setCurrentPage(2026, month);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCOMPARE(clippedTexts(&calendar).join('\n'), QString());
    }
}

VEMO_TEST_MAIN(LanguagesTest)
#include "tst_languages.moc"
