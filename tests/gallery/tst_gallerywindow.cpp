// SPDX-License-Identifier: MIT
#include "support/activewindow.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include "gallery/gallerywindow.h"
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/screenshots.h"
#include "support/testhost.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemobutton.h>

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStackedWidget>
#include <QStyle>
#include <QTableView>
#include <QTextBlock>
#include <QTextDocument>

namespace {

constexpr int kDesktopFontSize = 10; // points

Options options(const QString &page = {})
{
    Options options;
    options.language = "enu";
    options.page = page;
    return options;
}

/// A visible gallery and its parts.
struct Gallery
{
    explicit Gallery(const QString &page = {}) : window(options(page))
    {
        QVERIFY(showActive(&window));
    }

    QString currentTitle() const { return list->currentItem()->text(); }

    QStringList foundTitles() const
    {
        QStringList titles;
        for (int row = 0; row < list->count(); ++row) {
            if (!list->item(row)->isHidden())
                titles << list->item(row)->text();
        }
        return titles;
    }

    GalleryWindow window;
    QLineEdit *search = window.findChild<QLineEdit *>("search");
    QListWidget *list = window.findChild<QListWidget *>("pageList");
    QLabel *nothingFound = window.findChild<QLabel *>("nothingFound");
    QStackedWidget *stack = window.findChild<QStackedWidget *>();
};

/// The fields of a row, which are of one height and overlap in it, that begin at other heights.
QStringList fieldsOutOfLine(const QWidget *page)
{
    QVector<QRect> places;
    for (const QLineEdit *field : page->findChildren<QLineEdit *>()) {
        if (!qobject_cast<QAbstractSpinBox *>(field->parent())
            && !qobject_cast<QComboBox *>(field->parent()))
            places << QRect(field->mapTo(page, QPoint(0, 0)), field->size());
    }
    QStringList faults;
    for (const QRect &one : qAsConst(places)) {
        for (const QRect &other : qAsConst(places)) {
            const int offset = other.top() - one.top();
            if (one.height() == other.height() && offset > 0 && offset < one.height())
                faults += QString("%1 and %2").arg(one.top()).arg(other.top());
        }
    }
    return faults;
}

/// What Tab reaches and screen readers see. Not the parts that Qt makes for itself, which are read
/// out with the widget that they belong to.
QList<QWidget *> controlsOf(const QWidget &window)
{
    QList<QWidget *> controls;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isPart = widget->objectName().startsWith("qt_") || widget->focusProxy();
        if (isPart || !widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
            continue;
        const QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(widget);
        if (!reader || !reader->state().invisible) // as the paging bar's places without a page
            controls += widget;
    }
    return controls;
}

QStringList nameless(const QList<QWidget *> &controls)
{
    QStringList found;
    for (QWidget *widget : controls) {
        const QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(widget);
        if (!reader || reader->text(QAccessible::Name).isEmpty())
            found += QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
    }
    return found;
}

/// Whether something dark is painted in part.
bool hasInk(const QImage &picture, const QRect &part)
{
    constexpr int kInk = 100; // grey
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (qGray(picture.pixel(x, y)) < kInk)
                return true;
        }
    }
    return false;
}

} // namespace

class GalleryWindowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsEveryPageInOrder();
    void pagesHaveTitlesAndFilesOfTheirOwn();
    void startsWithTheFirstPageOrTheChosenOne();
    void everyPageIsWholeAndInLineAndNamesItsControls_data();
    void everyPageIsWholeAndInLineAndNamesItsControls();
    void searchShowsThePagesThatHaveEveryWord_data();
    void searchShowsThePagesThatHaveEveryWord();
    void searchLeavesAPageThatItHides();
    void searchWithoutResultSaysSo();
    void findShortcutGoesToTheSearchField();
    void arrowsInTheSearchFieldMoveInTheList();
    void arrowsSkipPagesThatTheSearchHides();
    void escapeEmptiesTheSearchField();
    void theClearButtonShowsBesideTextAndEmptiesIt();
    void textsBeginAtTheWindowsSide_data();
    void textsBeginAtTheWindowsSide();
    void lineIsBetweenTheListAndThePage_data() { rowsAreSelectedInEitherDirection_data(); }
    void lineIsBetweenTheListAndThePage();
    void namesShareTheBaselineOfTheirValues();
    void ticksOfSlidersHaveADistanceOfTheirOwn();
    void picturesOfTheHelpAreInLineWithTheirTexts();
    void rowsAreSelectedInEitherDirection_data();
    void rowsAreSelectedInEitherDirection();
    void codeCanBeSelected();
    void theFocusedEntryIsMarked();
};

void GalleryWindowTest::initTestCase()
{
    startDefaultTheme();
    QApplication::setPalette(defaultThemePalette());
    installGalleryStyle();
    QFont font = QApplication::font();
    font.setPointSize(kDesktopFontSize); // as the program does
    QApplication::setFont(font);
}

void GalleryWindowTest::listsEveryPageInOrder()
{
    const Gallery gallery;
    QCOMPARE(gallery.foundTitles(), pageTitles());
    QCOMPARE(gallery.foundTitles().mid(0, 2), QStringList({"Resources", "Buttons"}));
}

void GalleryWindowTest::pagesHaveTitlesAndFilesOfTheirOwn()
{
    QStringList names;
    for (const QString &title : pageTitles())
        names << screenshotName(title);
    QCOMPARE(names.removeDuplicates(), 0);
    QCOMPARE(screenshotName("Data views (2)"), QString("data-views-2-.png"));
}

void GalleryWindowTest::startsWithTheFirstPageOrTheChosenOne()
{
    {
        const Gallery gallery;
        QCOMPARE(gallery.currentTitle(), pageTitles().first());
        QVERIFY(gallery.list->hasFocus());
    }
    const Gallery gallery("buttons");
    QCOMPARE(gallery.currentTitle(), QString("Buttons"));
    QVERIFY(gallery.stack->currentWidget()->findChild<VemoButton *>());
}

void GalleryWindowTest::everyPageIsWholeAndInLineAndNamesItsControls_data()
{
    QTest::addColumn<QString>("title");
    for (const QString &title : pageTitles())
        QTest::newRow(qPrintable(title)) << title;
}

/// All that holds for every page, and without a warning: it takes long to build a page.
void GalleryWindowTest::everyPageIsWholeAndInLineAndNamesItsControls()
{
    QFETCH(QString, title);
    Gallery gallery(title);
    const auto *area = qobject_cast<QScrollArea *>(gallery.stack->currentWidget());
    QVERIFY(qobject_cast<Page *>(area->widget()));
    QVERIFY(area->widget()->findChild<QFrame *>("card"));
    QCOMPARE(area->widget()->findChild<QLabel *>("pageTitle")->text(), title);
    QCoreApplication::processEvents();
    QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
    QCOMPARE(fieldsOutOfLine(area->widget()), QStringList());
    const QList<QWidget *> controls = controlsOf(gallery.window);
    QVERIFY(controls.size() >= 3); // the search field, the list and the page at least
    QCOMPARE(nameless(controls), QStringList());

    GalleryWindow &window = gallery.window;
    window.hide();
    window.setAttribute(Qt::WA_DontShowOnScreen); // which would limit its size
    window.show();
    window.resize(300, 200);
    window.growToPage();
    QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
    QCOMPARE(area->verticalScrollBar()->maximum(), 0);
    QVERIFY(area->widget()->height() >= area->widget()->minimumSizeHint().height());
    QCOMPARE(window.grab().size(), window.size() * window.devicePixelRatioF());
}

void GalleryWindowTest::searchShowsThePagesThatHaveEveryWord_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("isFound");
    const QString buttons = "Buttons";
    addRow("nothing", QString(), buttons, true);
    addRow("blanks", QString("  "), buttons, true);
    addRow("title", QString("Buttons"), buttons, true);
    addRow("part of the title, in another case", QString("bUTT"), buttons, true);
    addRow("class", QString("VemoIconButton"), buttons, true);
    addRow("record", QString("ContentsEntry"), QString("Help"), true);
    addRow("two words in any order", QString("tool BUTTONS"), buttons, true);
    addRow("one word of two", QString("buttons nowhere"), buttons, false);
    addRow("another page's word", QString("FileTypeMap"), buttons, false);
}

void GalleryWindowTest::searchShowsThePagesThatHaveEveryWord()
{
    QFETCH(QString, query);
    QFETCH(QString, page);
    const Gallery gallery;
    QTest::keyClicks(gallery.search, query);
    QTEST(gallery.foundTitles().contains(page), "isFound");
    QCOMPARE(gallery.nothingFound->isVisible(), gallery.foundTitles().isEmpty());
}

void GalleryWindowTest::searchLeavesAPageThatItHides()
{
    const Gallery gallery;
    QCOMPARE(gallery.currentTitle(), QString("Resources"));
    QTest::keyClicks(gallery.search, "VemoIconButton");
    QCOMPARE(gallery.foundTitles().first(), gallery.currentTitle());
    QVERIFY(gallery.stack->currentWidget()->findChild<VemoButton *>());
}

void GalleryWindowTest::searchWithoutResultSaysSo()
{
    const Gallery gallery;
    QVERIFY(!gallery.nothingFound->isVisible());
    QTest::keyClicks(gallery.search, "no such widget");
    QVERIFY(gallery.nothingFound->isVisible());
    gallery.search->clear();
    QVERIFY(!gallery.nothingFound->isVisible());
    QCOMPARE(gallery.foundTitles(), pageTitles());
}

void GalleryWindowTest::findShortcutGoesToTheSearchField()
{
    Gallery gallery;
    gallery.search->setText("butt");
    QVERIFY(!gallery.search->hasFocus());
    QTest::keyClick(gallery.window.windowHandle(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(gallery.search->hasFocus());
    QCOMPARE(gallery.search->selectedText(), QString("butt"));
}

void GalleryWindowTest::arrowsInTheSearchFieldMoveInTheList()
{
    Gallery gallery;
    gallery.search->setFocus();
    QTest::keyClick(gallery.window.windowHandle(), Qt::Key_Down);
    QCOMPARE(gallery.currentTitle(), pageTitles().at(1));
    QTest::keyClick(gallery.window.windowHandle(), Qt::Key_Up);
    QCOMPARE(gallery.currentTitle(), pageTitles().at(0));
    QVERIFY(gallery.search->hasFocus());
}

void GalleryWindowTest::arrowsSkipPagesThatTheSearchHides()
{
    Gallery gallery("Buttons");
    QTest::keyClicks(gallery.search, "VemoButton");
    const QStringList found = gallery.foundTitles();
    for (int i = 0; i < pageTitles().size(); ++i)
        QTest::keyClick(gallery.search, Qt::Key_Up);
    QCOMPARE(gallery.currentTitle(), found.first());
}

void GalleryWindowTest::escapeEmptiesTheSearchField()
{
    const Gallery gallery;
    QTest::keyClicks(gallery.search, "icon");
    QTest::keyClick(gallery.search, Qt::Key_Escape);
    QCOMPARE(gallery.search->text(), QString());
    QCOMPARE(gallery.foundTitles(), pageTitles());
}

void GalleryWindowTest::theClearButtonShowsBesideTextAndEmptiesIt()
{
    const Gallery gallery;
    QAction *clear = gallery.search->actions().last();
    QVERIFY(!clear->isVisible());
    QTest::keyClicks(gallery.search, "icon");
    QVERIFY(clear->isVisible());
    clear->trigger();
    QCOMPARE(gallery.search->text(), QString());
    QVERIFY(!clear->isVisible());
}

void GalleryWindowTest::textsBeginAtTheWindowsSide_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isOnTheLeft");
    for (const char *const name : {"pageTitle", "pageSummary", "sectionCaption", "sectionText"}) {
        QTest::addRow("%s, left to right", name) << Qt::LeftToRight << QString(name) << true;
        QTest::addRow("%s, right to left", name) << Qt::RightToLeft << QString(name) << false;
    }
    QTest::newRow("code, right to left") << Qt::RightToLeft << "code" << true;
}

void GalleryWindowTest::textsBeginAtTheWindowsSide()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(QString, name);
    QFETCH(bool, isOnTheLeft);
    Gallery gallery("Fields");
    gallery.window.setLayoutDirection(direction);
    auto *label = gallery.stack->currentWidget()->findChild<QLabel *>(name);
    QVERIFY(label);
    label->setText("Short");
    QCoreApplication::sendPostedEvents();
    const QImage picture = label->grab().toImage();
    // Half of a label that is much wider than its text.
    const QRect left(0, 0, picture.width() / 2, picture.height());
    const QRect right = left.translated(picture.width() - left.width(), 0);
    QVERIFY(label->width() > 300);
    QCOMPARE(hasInk(picture, left), isOnTheLeft);
    QCOMPARE(hasInk(picture, right), !isOnTheLeft);
}

void GalleryWindowTest::lineIsBetweenTheListAndThePage()
{
    QFETCH(Qt::LayoutDirection, direction);
    QGuiApplication::setLayoutDirection(direction);
    Gallery gallery;
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    const QImage picture = gallery.window.grab().toImage();
    const int y = picture.height() / 2;
    const int width = qRound(DPIinfo::scaled(232) * picture.devicePixelRatio()); // with the line
    const QColor line("#c8d2dc");
    const bool isMirrored = direction == Qt::RightToLeft;
    const int inner = isMirrored ? picture.width() - width : width - 1;
    const int outer = isMirrored ? picture.width() - 1 : 0;
    QCOMPARE(picture.pixelColor(inner, y), line);
    QVERIFY(picture.pixelColor(outer, y) != line);
}

void GalleryWindowTest::namesShareTheBaselineOfTheirValues()
{
    Gallery gallery("Resources");
    gallery.window.growToPage();
    QCoreApplication::sendPostedEvents();
    const QWidget *page = gallery.stack->currentWidget();
    const auto baseline = [page](const QLabel *label) {
        const QRect text = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignLeft | Qt::AlignVCenter,
            {1, label->fontMetrics().height()}, label->contentsRect());
        return label->mapTo(page, text.topLeft()).y() + label->fontMetrics().ascent();
    };
    const QList<QLabel *> names = page->findChildren<QLabel *>("valueName");
    const QList<QLabel *> values = page->findChildren<QLabel *>("text");
    QCOMPARE(names.size(), 8);
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(baseline(names[i]), baseline(values[i]));
    if (kIsWindows) { // There a window may not be higher than the screen.
        for (const QString &message : messages.take())
            QVERIFY2(message.contains("Unable to set geometry"), qPrintable(message));
    }
}

void GalleryWindowTest::ticksOfSlidersHaveADistanceOfTheirOwn()
{
    const Gallery gallery("Qt choices and ranges");
    int slidersWithTicks = 0;
    for (const QSlider *slider : gallery.stack->currentWidget()->findChildren<QSlider *>()) {
        if (slider->tickPosition() == QSlider::NoTicks)
            continue;
        ++slidersWithTicks;
        QCOMPARE(slider->tickInterval(), 10);
    }
    QCOMPARE(slidersWithTicks, 2);
}

void GalleryWindowTest::picturesOfTheHelpAreInLineWithTheirTexts()
{
    const Gallery gallery("Help");
    QFile file(UIPathManager::getInstance().getPath("user_data_path") + "/help/enu/backup.html");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QTextDocument help;
    help.setHtml(QString::fromUtf8(file.readAll()));
    int pictures = 0;
    for (QTextBlock block = help.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (!format.isImageFormat())
                continue;
            ++pictures;
            QCOMPARE(format.verticalAlignment(), QTextCharFormat::AlignMiddle);
        }
    }
    QCOMPARE(pictures, 3);
}

void GalleryWindowTest::rowsAreSelectedInEitherDirection_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void GalleryWindowTest::rowsAreSelectedInEitherDirection()
{
    QFETCH(Qt::LayoutDirection, direction);
    QGuiApplication::setLayoutDirection(direction);
    const Gallery gallery("Table");
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QStringList selected;
    for (const QTableView *table : gallery.stack->currentWidget()->findChildren<QTableView *>()) {
        if (table->selectionModel() && table->selectionModel()->hasSelection())
            selected += table->accessibleName();
    }
    QVERIFY2(selected.contains("Files"), qPrintable(selected.join(", ")));
    QVERIFY2(selected.contains("A million squares"), qPrintable(selected.join(", ")));
}

void GalleryWindowTest::codeCanBeSelected()
{
    const Gallery gallery("Buttons");
    const auto *code = gallery.stack->currentWidget()->findChild<QLabel *>("code");
    QVERIFY(code->textInteractionFlags() & Qt::TextSelectableByMouse);
    QVERIFY(code->textInteractionFlags() & Qt::TextSelectableByKeyboard);
    QVERIFY(code->text().contains("new VemoButton("));
}

void GalleryWindowTest::theFocusedEntryIsMarked()
{
    Gallery gallery;
    const QPixmap focused = gallery.list->grab();
    gallery.search->setFocus();
    QVERIFY(gallery.list->grab().toImage() != focused.toImage());
}

VEMO_TEST_MAIN(GalleryWindowTest)
#include "tst_gallerywindow.moc"
