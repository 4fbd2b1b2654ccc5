// SPDX-License-Identifier: MIT
#include <vemo/vemobuttonpath.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/imagemanager.h>

#include <QProxyStyle>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QToolButton>

namespace {

const char *const kPath = "alphabetical order/R&D/gamma/delta/epsilon";

struct DrawnButton
{
    QString text;
    QRect rect;
};

/// Records the drawing of buttons that have no style sheet.
class RecordingStyle : public QProxyStyle
{
public:
    RecordingStyle() : QProxyStyle("fusion") { }

    QHash<const QWidget *, DrawnButton> drawn;

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override
    {
        if (element == CE_PushButton) {
            const auto *button = static_cast<const QStyleOptionButton *>(option);
            const_cast<RecordingStyle *>(this)->drawn.insert(widget, {button->text, button->rect});
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }
};

/// A shown bar that is too narrow for its row.
struct Path
{
    explicit Path(Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        window.setLayoutDirection(direction);
        bar.resize(2000, bar.height());
        window.resize(600, 100);
        window.show();
        QCoreApplication::processEvents();
        bar.refresh(kPath);
        frame = bar.width() - bar.viewport()->width();
    }
    /// Makes the bar narrower than the row by that many pixels.
    void refreshWithout(int pixels)
    {
        int width = frame - pixels;
        for (int column = 0; column < bar.columnCount(); ++column)
            width += bar.columnWidth(column);
        bar.resize(width, bar.height());
        bar.refresh(kPath);
        QCoreApplication::processEvents();
    }
    QPushButton *button(int column) const
    {
        return qobject_cast<QPushButton *>(bar.cellWidget(0, column));
    }
    QToolButton *folder() const
    {
        return bar.findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    }
    /// A button's place in the bar.
    QRect place(int column) const
    {
        return button(column)->geometry().translated(bar.viewport()->pos());
    }

    QWidget window;
    VemoButtonPath bar {&window};
    int frame = 0;
};

} // namespace

Q_DECLARE_METATYPE(Qt::LayoutDirection)

class PathRowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void elidesANameThatIsCutAtItsFront_data();
    void elidesANameThatIsCutAtItsFront();
    void drawsNothingOfANameWithoutRoom();
    void drawsWholeArrowsOnly();
    void drawsWholeNamesOfARowThatFits();
    void drawsANameAgainWhenItScrolls();
    void bringsAFocusedPartIntoView_data();
    void bringsAFocusedPartIntoView();
    void putsTheFolderButtonAtTheStart();
    void pointsArrowsToWhereTheRowGoesOn();
    void paintsARefreshedRowOnce_data();
    void paintsARefreshedRowOnce();
    void movesThePartsAfterAColumnThatIsResized();
    void partsFollowALaterStyleSheet_data();
    void partsFollowALaterStyleSheet();

private:
    RecordingStyle *m_style = nullptr; ///< the application's
};

void PathRowTest::initTestCase()
{
    startDefaultTheme();
    m_style = new RecordingStyle;
    QApplication::setStyle(m_style);
}

void PathRowTest::init()
{
    VemoTest::init();
    m_style->drawn.clear();
}

void PathRowTest::elidesANameThatIsCutAtItsFront_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void PathRowTest::elidesANameThatIsCutAtItsFront()
{
    QFETCH(Qt::LayoutDirection, direction);
    Path path(direction);
    const int text = path.button(0)->fontMetrics().horizontalAdvance("alphabetical order");
    const int left = scaled(16) + text * 2 / 3;
    path.refreshWithout(path.button(0)->width() - path.folder()->width() - left);
    QPushButton *first = path.button(0);
    first->setStyleSheet(QString());
    QVERIFY(!path.bar.grab().isNull());
    const DrawnButton drawn = m_style->drawn.value(first);
    const int dots = drawn.text.indexOf(QChar(0x2026));
    QCOMPARE(dots, direction == Qt::RightToLeft ? 1 : 0); // after the mark of the text's direction
    const QString rest = drawn.text.mid(dots + 1);
    QVERIFY(!rest.isEmpty() && QString("alphabetical order").endsWith(rest));
    const int room = drawn.rect.width() - scaled(16);
    QVERIFY(first->fontMetrics().horizontalAdvance(drawn.text) <= room);
    QRect place = path.place(0);
    if (direction == Qt::LeftToRight)
        place.setLeft(path.folder()->geometry().right() + 1);
    else
        place.setRight(path.folder()->geometry().left() - 1);
    QCOMPARE(drawn.rect.translated(path.place(0).topLeft()), place);
    QCOMPARE(first->text(), QString("alphabetical order"));
}

void PathRowTest::drawsNothingOfANameWithoutRoom()
{
    Path path;
    path.refreshWithout(path.button(0)->width() - path.folder()->width() - scaled(16));
    path.button(0)->setStyleSheet(QString());
    QVERIFY(!path.bar.grab().isNull());
    QVERIFY(!m_style->drawn.contains(path.button(0)));
}

void PathRowTest::drawsWholeArrowsOnly()
{
    Path path;
    const int upToTheArrow = path.button(0)->width() - path.folder()->geometry().right();
    for (const int cut : {0, 1}) {
        path.refreshWithout(upToTheArrow + cut);
        path.button(1)->setStyleSheet(QString());
        m_style->drawn.clear();
        QVERIFY(!path.bar.grab().isNull());
        QCOMPARE(m_style->drawn.contains(path.button(1)), cut == 0);
    }
}

void PathRowTest::drawsWholeNamesOfARowThatFits()
{
    Path path;
    path.refreshWithout(0);
    path.button(2)->setStyleSheet(QString());
    QVERIFY(!path.bar.grab().isNull());
    const DrawnButton drawn = m_style->drawn.value(path.button(2));
    QCOMPARE(drawn.text, QString("R&&D"));
    QCOMPARE(drawn.rect, path.button(2)->rect());
}

void PathRowTest::drawsANameAgainWhenItScrolls()
{
    Path path;
    path.refreshWithout(1);
    path.button(0)->setStyleSheet(QString());
    QCoreApplication::processEvents();
    m_style->drawn.clear();
    path.bar.horizontalScrollBar()->setValue(-5);
    QTRY_VERIFY(m_style->drawn.contains(path.button(0)));
}

void PathRowTest::bringsAFocusedPartIntoView_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("column");
    for (const int column : {0, 2}) {
        const QByteArray name = QByteArray("column ") + QByteArray::number(column);
        QTest::newRow(name) << Qt::LeftToRight << column;
        QTest::newRow(name + ", right to left") << Qt::RightToLeft << column;
    }
}

void PathRowTest::bringsAFocusedPartIntoView()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, column);
    Path path(direction);
    path.refreshWithout(path.button(0)->width() + path.button(1)->width());
    QVERIFY(showActive(&path.window));
    path.folder()->setFocus();
    for (int tab = 0; tab <= column; tab += 2)
        QTest::keyClick(path.window.windowHandle(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), path.button(column));
    const QRect visible = path.bar.viewport()->geometry();
    QVERIFY(visible.contains(path.place(column)));
    QVERIFY(!path.place(column).intersects(path.folder()->geometry()));
    // grab() and other causes of a new layout must not move it.
    const QRect before = path.place(column);
    QVERIFY(!path.bar.grab().isNull());
    QCOMPARE(path.place(column), before);
}

void PathRowTest::putsTheFolderButtonAtTheStart()
{
    Path path(Qt::RightToLeft);
    path.refreshWithout(1);
    const auto fromRight = [&] { return path.bar.width() - 1 - path.folder()->geometry().right(); };
    QVERIFY(path.folder()->isVisible());
    QCOMPARE(fromRight(), scaled(1));
    path.bar.resize(path.bar.width() - 10, path.bar.height());
    QCOMPARE(fromRight(), scaled(1));
    QCOMPARE(path.place(8).left(), path.bar.viewport()->x());
    path.window.setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(path.folder()->x(), scaled(1));
    path.window.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(fromRight(), scaled(1));
}

void PathRowTest::pointsArrowsToWhereTheRowGoesOn()
{
    const QImage picture = getGlobalImage("bt_next").toImage();
    QVERIFY(picture != picture.mirrored(true, false));
    const auto shown = [](const QPushButton *arrow) {
        return arrow->icon()
            .pixmap(arrow->iconSize())
            .toImage()
            .convertToFormat(QImage::Format_ARGB32);
    };
    const QImage leftToRight = picture.convertToFormat(QImage::Format_ARGB32);
    const QImage rightToLeft = leftToRight.mirrored(true, false);
    Path path(Qt::RightToLeft);
    QCOMPARE(shown(path.button(1)), rightToLeft);
    path.window.setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(shown(path.button(1)), leftToRight);
    path.window.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(shown(path.button(1)), rightToLeft);
}

void PathRowTest::paintsARefreshedRowOnce_data()
{
    QTest::addColumn<int>("hiddenPixels");
    QTest::newRow("it fits") << 0;
    QTest::newRow("it is too wide") << 40;
}

void PathRowTest::paintsARefreshedRowOnce()
{
    if (QGuiApplication::platformName() != "offscreen")
        QSKIP("A window system may request paints of its own");
    QFETCH(int, hiddenPixels);
    Path path;
    path.refreshWithout(hiddenPixels);
    path.bar.refresh(kPath);
    const EventCounter paints(path.bar.viewport(), QEvent::Paint);
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    QCOMPARE(paints.count(), 1);
}

void PathRowTest::movesThePartsAfterAColumnThatIsResized()
{
    Path path;
    const int left = path.place(1).left();
    path.bar.setColumnWidth(0, path.bar.columnWidth(0) + 50);
    QTRY_COMPARE(path.place(1).left(), left + 50);
}

void PathRowTest::partsFollowALaterStyleSheet_data()
{
    QTest::addColumn<QString>("owner");
    for (const char *owner : {"part", "bar", "application"})
        QTest::newRow(owner) << QString(owner);
}

void PathRowTest::partsFollowALaterStyleSheet()
{
    QFETCH(QString, owner);
    Path path;
    for (const int column : {0, 1}) {
        QPushButton *part = path.button(column);
        QWidget *sheetOwner = owner == "bar" ? static_cast<QWidget *>(&path.bar) : part;
        const auto setMargin = [&](int margin) {
            const QString sheet =
                QString("QPushButton { border: none; margin: 0px %1px; }").arg(margin);
            if (owner == "application")
                qApp->setStyleSheet(margin ? sheet : QString());
            else
                sheetOwner->setStyleSheet(sheet);
        };
        setMargin(0);
        const QSize before = part->sizeHint();
        setMargin(45);
        const QSize after = part->sizeHint();
        setMargin(0);
        QCOMPARE(after, before + QSize(90, 0));
        QCOMPARE(part->sizeHint(), before);
    }
}

VEMO_TEST_MAIN(PathRowTest)
#include "tst_pathrow.moc"
