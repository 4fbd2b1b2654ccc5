// SPDX-License-Identifier: MIT
#include <vemo/vemobadge.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>
#include <vemo/vemoiconbutton.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSplitter>

using Change = std::function<void(VemoBadge &)>;
Q_DECLARE_METATYPE(Change)

class VemoBadgeTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void init();
    void cleanup();
    void showsTextOrNothing_data();
    void showsTextOrNothing();
    void valuesOutOfRangeAreLimited();
    void countHasTheDigitsOfTheLocale();
    void hasTheSectionOfItsKind_data();
    void hasTheSectionOfItsKind();
    void everyKindHasItsGround();
    void oneDigitIsRoundAndADotSmall();
    void growsWithTheFont();
    void isNoWindowUntilALayoutTakesIt();
    void staysHiddenIfTheHostHidIt();
    void isAtTheCornerOfItsTarget_data();
    void isAtTheCornerOfItsTarget();
    void growsOutwards_data() { isAtTheCornerOfItsTarget_data(); }
    void growsOutwards();
    void staysInsideTheParent();
    void followsItsTarget_data();
    void followsItsTarget();
    void isHiddenAndShownWithItsTarget();
    void isDisabledWithItsTarget();
    void staysAboveARaisedTarget();
    void followsItsTargetToAnotherParent();
    void attachesBeforeTheTargetHasAParent();
    void isInsideAWindowOrAPane();
    void isDeletedWithItsTarget_data();
    void isDeletedWithItsTarget();
    void canBeDeletedFirst();
    void leavesItsTarget();
    void letsClicksThrough();
    void isAnnounced();
    void describesItsTarget();
    void keepsTheDescriptionOfTheHost();
    void takesAnotherTheme();

private:
    QRect corner() const;

    QScopedPointer<QWidget> m_window;
    QPushButton *m_target = nullptr;
    VemoBadge *m_badge = nullptr;
};

namespace {

QString announced(QWidget *widget, QAccessible::Text kind)
{
    return QAccessible::queryAccessibleInterface(widget)->text(kind);
}

} // namespace

/// A window with a target in its middle and a badge that shows 3.
void VemoBadgeTest::init()
{
    VemoTest::init();
    m_window.reset(new QWidget);
    m_window->resize(400, 300);
    m_target = new QPushButton("Inbox", m_window.data());
    m_target->setGeometry(100, 100, 120, 40);
    m_badge = new VemoBadge;
    m_badge->attachTo(m_target);
    m_badge->setCount(3);
    m_window->show();
}

void VemoBadgeTest::cleanup()
{
    m_window.reset();
    VemoTest::cleanup();
}

/// Where the badge belongs from left to right.
QRect VemoBadgeTest::corner() const
{
    const QSize size = m_badge->sizeHint();
    const QRect target = m_target->geometry();
    const int inset = DPIinfo::scaled(4);
    return {QPoint(target.x() + target.width() - inset - qMin(size.width(), size.height()) / 2,
                target.y() + inset - size.height() / 2),
        size};
}

void VemoBadgeTest::showsTextOrNothing_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("hidden");
    const auto row = [](const char *name, const Change &change, const QString &shown,
                         bool hidden = false) { addRow(name, change, shown, hidden); };
    row(
        "nothing", [](VemoBadge &) {}, "", true);
    row(
        "count", [](VemoBadge &b) { b.setCount(1); }, "1");
    row(
        "zero", [](VemoBadge &b) { b.setCount(4), b.setCount(0); }, "", true);
    row(
        "visible zero", [](VemoBadge &b) { b.setZeroVisible(true); }, "0");
    row(
        "maximum", [](VemoBadge &b) { b.setCount(99); }, "99");
    row(
        "above", [](VemoBadge &b) { b.setCount(100); }, "99+");
    row(
        "other maximum", [](VemoBadge &b) { b.setCount(10), b.setMaximum(9); }, "9+");
    row(
        "larger maximum", [](VemoBadge &b) { b.setCount(812), b.setMaximum(999); }, "812");
    row(
        "text", [](VemoBadge &b) { b.setText("new"); }, "new");
    row(
        "text before count", [](VemoBadge &b) { b.setText("new"), b.setCount(2); }, "new");
    row(
        "text removed", [](VemoBadge &b) { b.setCount(2), b.setText("a"), b.setText({}); }, "2");
    row(
        "plain text", [](VemoBadge &b) { b.setText("<b>1</b>"); }, "<b>1</b>");
    row(
        "dot", [](VemoBadge &b) { b.setDot(true); }, "");
    row(
        "dot before text", [](VemoBadge &b) { b.setText("new"), b.setDot(true); }, "");
    row(
        "dot removed", [](VemoBadge &b) { b.setDot(true), b.setDot(false); }, "", true);
}

void VemoBadgeTest::showsTextOrNothing()
{
    QFETCH(Change, change);
    QWidget window;
    VemoBadge badge(&window);
    change(badge);
    QTEST(badge.QLabel::text(), "shown");
    QTEST(badge.isHidden(), "hidden");
    QCOMPARE(badge.textFormat(), Qt::PlainText);
}

void VemoBadgeTest::valuesOutOfRangeAreLimited()
{
    VemoBadge badge;
    badge.setCount(-3);
    QCOMPARE(badge.count(), 0);
    badge.setMaximum(0);
    QCOMPARE(badge.maximum(), 1);
    badge.setKind(static_cast<VemoBadge::Kind>(7));
    QCOMPARE(badge.kind(), VemoBadge::Accent);
}

void VemoBadgeTest::countHasTheDigitsOfTheLocale()
{
    m_badge->setCount(120);
    m_window->setLocale(QLocale("ar_EG"));
    QCOMPARE(m_badge->QLabel::text(), QLocale("ar_EG").toString(99) + "+");
    QVERIFY(m_badge->QLabel::text() != "99+");
}

void VemoBadgeTest::hasTheSectionOfItsKind_data()
{
    QTest::addColumn<VemoBadge::Kind>("kind");
    QTest::addColumn<QString>("section");
    addRow("accent", VemoBadge::Accent, QString("component.badge_accent"));
    addRow("danger", VemoBadge::Danger, QString("component.badge_danger"));
    addRow("neutral", VemoBadge::Neutral, QString("component.badge_neutral"));
}

void VemoBadgeTest::hasTheSectionOfItsKind()
{
    QFETCH(VemoBadge::Kind, kind);
    QFETCH(QString, section);
    m_badge->setKind(VemoBadge::Danger);
    m_badge->setKind(kind);
    QCOMPARE(m_badge->kind(), kind);
    QVERIFY(!m_badge->styleSheet().isEmpty());
    QCOMPARE(m_badge->styleSheet(), getStyleSheet(section));
}

void VemoBadgeTest::everyKindHasItsGround()
{
    const QPair<VemoBadge::Kind, const char *> grounds[] = {
        {VemoBadge::Accent, "accent"}, {VemoBadge::Danger, "danger"}, {VemoBadge::Neutral, "line"}};
    for (const auto &[kind, ground] : grounds) {
        m_badge->setKind(kind);
        const QPoint edge(m_badge->width() / 2, 1);
        QCOMPARE(pixelAt(m_badge, edge).name(), defaultThemeColor(ground).name());
    }
    m_badge->setDot(true);
    QCOMPARE(
        pixelAt(m_badge, m_badge->rect().center()).name(), defaultThemeColor("soft-ink").name());
}

void VemoBadgeTest::oneDigitIsRoundAndADotSmall()
{
    QVERIFY(m_badge->height() >= DPIinfo::scaled(16));
    QVERIFY(m_badge->width() >= DPIinfo::scaled(16));
    QVERIFY(qAbs(m_badge->width() - m_badge->height()) <= DPIinfo::scaled(4));
    m_badge->setDot(true);
    QCOMPARE(m_badge->size(), QSize(DPIinfo::scaled(8), DPIinfo::scaled(8)));
    m_badge->setDot(false);
    QVERIFY(m_badge->height() >= DPIinfo::scaled(16));
}

void VemoBadgeTest::growsWithTheFont()
{
    const QSize before = m_badge->size();
    QFont font = m_badge->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    m_badge->setFont(font);
    QVERIFY(m_badge->height() > before.height());
    QCOMPARE(m_badge->geometry(), corner());
}

void VemoBadgeTest::isNoWindowUntilALayoutTakesIt()
{
    auto *badge = new VemoBadge;
    badge->setCount(2);
    QVERIFY(!badge->isVisible());
    auto *row = new QHBoxLayout(m_window.data());
    row->addWidget(badge);
    QTRY_VERIFY(badge->isVisible());
    QCOMPARE(badge->size(), badge->sizeHint());
    badge->setCount(0);
    QVERIFY(!badge->isVisible());
    auto *empty = new VemoBadge;
    row->addWidget(empty);
    QCoreApplication::processEvents();
    QVERIFY(!empty->isVisible());
    empty->setCount(1);
    QVERIFY(empty->isVisible());
}

void VemoBadgeTest::staysHiddenIfTheHostHidIt()
{
    VemoBadge badge(m_window.data());
    badge.setCount(2);
    badge.hide();
    badge.setCount(3);
    QVERIFY(badge.isHidden());
}

void VemoBadgeTest::isAtTheCornerOfItsTarget_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    addRow("left to right", Qt::LeftToRight);
    addRow("right to left", Qt::RightToLeft);
}

void VemoBadgeTest::isAtTheCornerOfItsTarget()
{
    QFETCH(Qt::LayoutDirection, direction);
    m_window->setLayoutDirection(direction);
    QRect expected = corner();
    if (direction == Qt::RightToLeft)
        expected.moveRight(m_target->x() + DPIinfo::scaled(4) + expected.width() / 2 - 1);
    QCOMPARE(m_badge->geometry(), expected);
    QCOMPARE(m_badge->parentWidget(), m_window.data());
}

void VemoBadgeTest::growsOutwards()
{
    QFETCH(Qt::LayoutDirection, direction);
    m_window->setLayoutDirection(direction);
    m_target->move(150, 100);
    const QRect one = m_badge->geometry();
    m_badge->setCount(100);
    const QRect wide = m_badge->geometry();
    QVERIFY(wide.width() > one.width());
    if (direction == Qt::RightToLeft)
        QCOMPARE(wide.right(), one.right());
    else
        QCOMPARE(wide.left(), one.left());
}

void VemoBadgeTest::staysInsideTheParent()
{
    m_target->setGeometry(400 - 120, 0, 120, 40);
    QCOMPARE(m_badge->geometry().right(), 399);
    QCOMPARE(m_badge->y(), 0);
    m_window->resize(500, 300);
    QTRY_COMPARE(m_badge->x(), corner().x());
    m_window->setLayoutDirection(Qt::RightToLeft);
    m_target->move(0, 0);
    QCOMPARE(m_badge->x(), 0);
}

void VemoBadgeTest::followsItsTarget_data()
{
    QTest::addColumn<Change>("change");
    const auto target = [](VemoBadge &badge) { return badge.target(); };
    addRow("moved", Change([=](VemoBadge &b) { target(b)->move(30, 60); }));
    addRow("resized", Change([=](VemoBadge &b) { target(b)->resize(60, 20); }));
    addRow("moved while hidden", Change([=](VemoBadge &b) {
        target(b)->hide();
        target(b)->setGeometry(50, 50, 30, 30);
        target(b)->show();
    }));
    addRow("count changed", Change([](VemoBadge &b) { b.setCount(1000); }));
    addRow("shown again", Change([](VemoBadge &b) { b.setCount(0), b.setCount(42); }));
    addRow("kind changed", Change([](VemoBadge &b) { b.setKind(VemoBadge::Danger); }));
    addRow("text", Change([](VemoBadge &b) { b.setText("a longer text"); }));
    addRow("moved while empty", Change([=](VemoBadge &b) {
        b.setCount(0);
        target(b)->move(10, 30);
        b.setCount(5);
    }));
}

void VemoBadgeTest::followsItsTarget()
{
    QFETCH(Change, change);
    change(*m_badge);
    QVERIFY(m_badge->isVisible());
    QCOMPARE(m_badge->geometry(), corner());
}

void VemoBadgeTest::isHiddenAndShownWithItsTarget()
{
    QVERIFY(m_badge->isVisible());
    m_target->hide();
    QVERIFY(m_badge->isHidden());
    m_badge->setCount(5);
    QVERIFY(m_badge->isHidden());
    m_target->show();
    QVERIFY(m_badge->isVisible());
    m_badge->setCount(0);
    m_target->hide();
    m_target->show();
    QVERIFY(m_badge->isHidden());
}

void VemoBadgeTest::isDisabledWithItsTarget()
{
    m_target->setEnabled(false);
    QVERIFY(!m_badge->isEnabled());
    m_target->setEnabled(true);
    QVERIFY(m_badge->isEnabled());
    m_window->setEnabled(false);
    m_window->setEnabled(true);
    QVERIFY(m_badge->isEnabled());
}

void VemoBadgeTest::staysAboveARaisedTarget()
{
    m_target->raise();
    QCOMPARE(m_window->children().last(), m_badge);
}

void VemoBadgeTest::followsItsTargetToAnotherParent()
{
    QWidget other;
    other.resize(300, 300);
    other.show();
    m_target->setParent(&other);
    QCOMPARE(m_badge->parentWidget(), &other);
    QVERIFY(m_badge->isHidden());
    m_target->show();
    QVERIFY(m_badge->isVisible());
    m_target->move(20, 80);
    QCOMPARE(m_badge->geometry(), corner());
    m_target->setParent(nullptr);
    QCOMPARE(m_badge->parentWidget(), m_target);
    m_target->setParent(m_window.data());
    m_target->show();
    m_target->move(20, 30);
    QCOMPARE(m_badge->parentWidget(), m_window.data());
    QCOMPARE(m_badge->geometry(), corner());
    QVERIFY(m_badge->isVisible());
}

void VemoBadgeTest::attachesBeforeTheTargetHasAParent()
{
    auto *button = new VemoIconButton("bt_settings");
    auto *badge = new VemoBadge;
    badge->attachTo(button);
    badge->setDot(true);
    auto *row = new QHBoxLayout(m_window.data());
    row->addWidget(button);
    QTRY_VERIFY(badge->isVisible());
    QCOMPARE(badge->parentWidget(), m_window.data());
    QTRY_COMPARE(badge->geometry().right(), button->geometry().right());
}

void VemoBadgeTest::isInsideAWindowOrAPane()
{
    m_badge->attachTo(m_window.data());
    QCOMPARE(m_badge->parentWidget(), m_window.data());
    QCOMPARE(m_badge->geometry().topRight(), m_window->rect().topRight());
    m_window->resize(500, 200);
    QTRY_COMPARE(m_badge->geometry().topRight(), m_window->rect().topRight());

    QSplitter splitter(m_window.data());
    auto *pane = new QWidget;
    splitter.addWidget(pane);
    m_badge->attachTo(pane);
    QCOMPARE(m_badge->parentWidget(), pane);
    QCOMPARE(splitter.count(), 1);
}

void VemoBadgeTest::isDeletedWithItsTarget_data()
{
    QTest::addColumn<int>("way");
    addRow("target", 0);
    addRow("window", 1);
    addRow("target that is a window", 2);
    addRow("badge created first", 3);
}

void VemoBadgeTest::isDeletedWithItsTarget()
{
    QFETCH(int, way);
    const QPointer<VemoBadge> badge = m_badge;
    if (way == 2)
        m_badge->attachTo(m_window.data());
    if (way == 3)
        m_target->raise(); // Children are deleted in their order.
    // A dying widget is no longer described: Qt would keep a new accessible interface of it.
    QString description;
    QWidget *target = badge->target();
    connect(
        target, &QObject::destroyed, this, [&] { description = target->accessibleDescription(); });
    if (way == 0)
        delete m_target;
    else
        m_window.reset();
    QVERIFY(!badge);
    QCOMPARE(description, QString("3"));
}

void VemoBadgeTest::canBeDeletedFirst()
{
    delete m_badge;
    QCOMPARE(announced(m_target, QAccessible::Description), QString());
    m_target->move(0, 0);
    m_target->hide();
    m_target->setParent(nullptr);
    delete m_target;
}

void VemoBadgeTest::leavesItsTarget()
{
    m_target->setEnabled(false);
    m_badge->attachTo(nullptr);
    QCOMPARE(m_badge->target(), nullptr);
    QVERIFY(m_badge->isHidden());
    QVERIFY(m_badge->isEnabled());
    QVERIFY(!m_badge->testAttribute(Qt::WA_TransparentForMouseEvents));
    QCOMPARE(announced(m_target, QAccessible::Description), QString());
    const QRect before = m_badge->geometry();
    m_target->hide();
    m_target->show();
    m_target->move(1, 2);
    QCOMPARE(m_badge->geometry(), before);
    delete m_target;
    m_badge->setCount(4);
    QVERIFY(m_badge->isVisible());
}

void VemoBadgeTest::letsClicksThrough()
{
    const QPoint onBoth = QPoint(m_badge->x() + 3, m_target->y() + 1);
    QVERIFY(m_badge->geometry().contains(onBoth));
    QSignalSpy clicked(m_target, &QPushButton::clicked);
    QCOMPARE(m_window->childAt(onBoth), m_target);
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, onBoth);
    QCOMPARE(clicked.count(), 1);
}

void VemoBadgeTest::isAnnounced()
{
    QAccessibleInterface *label = QAccessible::queryAccessibleInterface(m_badge);
    QCOMPARE(label->role(), QAccessible::StaticText);
    QCOMPARE(label->text(QAccessible::Name), QString("3"));
    m_badge->setCount(100);
    QCOMPARE(label->text(QAccessible::Name), QString("99+"));
    m_badge->setAccessibleName("100 unread messages");
    QCOMPARE(label->text(QAccessible::Name), QString("100 unread messages"));
}

void VemoBadgeTest::describesItsTarget()
{
    const auto description = [this] { return announced(m_target, QAccessible::Description); };
    QCOMPARE(description(), QString("3"));
    m_target->setToolTip("Messages");
    QCOMPARE(description(), QString("Messages, 3"));
    m_badge->setAccessibleName("4 unread");
    m_badge->setCount(4);
    QCOMPARE(description(), QString("Messages, 4 unread"));
    m_target->setToolTip("<b>Mail</b>");
    QCOMPARE(description(), QString("Mail, 4 unread"));
    m_badge->setDot(true);
    QCOMPARE(description(), QString("Mail, 4 unread"));
    m_badge->setDot(false);
    m_badge->setCount(0);
    QCOMPARE(description(), QString("Mail"));
    m_target->setToolTip("Messages");
    QCOMPARE(description(), QString("Messages"));
}

void VemoBadgeTest::keepsTheDescriptionOfTheHost()
{
    auto *button = new QPushButton(m_window.data());
    button->setAccessibleDescription("Own");
    m_badge->attachTo(button);
    QCOMPARE(announced(m_target, QAccessible::Description), QString());
    m_badge->setCount(7);
    QCOMPARE(announced(button, QAccessible::Description), QString("Own"));
}

void VemoBadgeTest::takesAnotherTheme()
{
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Dark));
    const QColor dark = defaultThemeColor("accent");
    const QColor shown = pixelAt(m_badge, {m_badge->width() / 2, 1});
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Light));
    QCOMPARE(shown.name(), dark.name());
    QVERIFY(dark != defaultThemeColor("accent"));
    QCOMPARE(
        pixelAt(m_badge, {m_badge->width() / 2, 1}).name(), defaultThemeColor("accent").name());
    QCOMPARE(m_badge->geometry(), corner());
}

VEMO_TEST_MAIN(VemoBadgeTest)
#include "tst_vemobadge.moc"
