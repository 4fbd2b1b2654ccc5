// SPDX-License-Identifier: MIT
#include <vemo/vemoiconbutton.h>

#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QGuiApplication>
#include <QMenu>
#include <QPointer>
#include <QScreen>

class VemoIconButtonTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isAClassOfItsOwnWithoutSignalsOrSlots();
    void isAPictureOnlyButtonInTheLibrarysLook_data();
    void isAPictureOnlyButtonInTheLibrarysLook();
    void mayBeMadeInItsParent();
    void pictureOfANameIsSetAtOnceButItsSizeAtTheNextChange();
    void sizeIsThatOfThePictureOnScreen();
    void pictureIsSizedByThePixelRatio();
    void givenPictureShowsInEveryState();
    void pointerPressAndReleaseChangeThePicture();
    void doubleClickIsLikeOtherClicks();
    void leavingKeepsTheHoverPictureWhileFocused();
    void disabledButtonKeepsItsPictureUnderThePointer_data();
    void disabledButtonKeepsItsPictureUnderThePointer();
    void enabledStateShowsAtOnce();
    void showingStartsAfresh();
    void missingStateShowsTheNormalPicture();
    void settersChangeOnePictureForTheNextChange();
    void looksCanBeForcedFromOutside();
    void newNameReplacesAllPictures();
    void pictureIsSetBeforeTheButtonReports();
    void everyMouseButtonShowsThePressedPicture_data();
    void everyMouseButtonShowsThePressedPicture();
    void otherChangesKeepThePicture_data();
    void otherChangesKeepThePicture();
    void baseStillActsOnEnterLeaveAndDisabling();
    void menuOpensOnPress();
    void pressedPictureGoesWithTheMenu_data();
    void pressedPictureGoesWithTheMenu();
    void pressedPictureStaysWithoutAMenuOfItsOwn();
    void mayBeDeletedOrDisabledUnderItsMenu();
    void nullPictureAndUnknownNameAreBlank();

private:
    TestHost m_host;
};

namespace {

const QColor kNormal(200, 40, 40);
const QColor kHover(40, 200, 40);
const QColor kClick(40, 40, 200);
const QColor kDisable(90, 90, 90);
const QColor kOther(220, 220, 20);

int factored(int length)
{
    const double exact = length * qEnvironmentVariableIntValue("QT_FONT_DPI") / 96.0;
    return qRound(exact);
}

QColor look(VemoIconButton &button)
{
    return pixelAt(&button, button.rect().center());
}

QPixmap filled(const QColor &colour, int size = 24)
{
    QPixmap picture(size, size);
    picture.fill(colour);
    return picture;
}

void send(QWidget &widget, QEvent::Type type)
{
    QEvent event(type);
    QApplication::sendEvent(&widget, &event);
}

/// A button that has been shown, so that its first picture and size are set.
struct Button : VemoIconButton
{
    explicit Button(const QString &name = "four") : VemoIconButton(name) { show(); }
    explicit Button(const QPixmap &picture) : VemoIconButton(picture) { show(); }
};

/// Calls action when the menu is open, then closes the menu.
void whileOpen(QMenu &menu, const std::function<void()> &action)
{
    QTimer::singleShot(0, &menu, [&menu, action] {
        QVERIFY(menu.isVisible());
        action();
        menu.close();
    });
}

const QString kNoHover = "Cannot load pixmap \"normal\" with type 1 [use default icon]";
const QString kNoClick = "Cannot load pixmap \"normal\" with type 2 [use default icon]";
const QString kNoDisable = "Cannot load pixmap \"normal\" with type 3 [use default icon]";

} // namespace

void VemoIconButtonTest::initTestCase()
{
    const QSize size(128, 128);
    m_host.addPicture("four", size, kNormal);
    m_host.addPicture("four_hover", size, kHover);
    m_host.addPicture("four_click", size, kClick);
    m_host.addPicture("four_disable", size, kDisable);
    m_host.addPicture("normal", {64, 64}, kOther);
    m_host.writeCatalogue({"four", "normal"});
    m_host.start(ImageManager::PRELOAD);
    const QString style = m_host.writeFile(
        "style.qss", "== component.icon_button ==\nQToolButton { border: none; padding: 2px; }\n");
    StyleManager::getInstance().initialize({style});
}

void VemoIconButtonTest::isAClassOfItsOwnWithoutSignalsOrSlots()
{
    const QMetaObject &meta = VemoIconButton::staticMetaObject;
    QCOMPARE(meta.className(), "VemoIconButton");
    QCOMPARE(meta.superClass(), &QToolButton::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void VemoIconButtonTest::isAPictureOnlyButtonInTheLibrarysLook_data()
{
    QTest::addColumn<bool>("byName");
    QTest::newRow("made from a name") << true;
    QTest::newRow("made from a picture") << false;
}

void VemoIconButtonTest::isAPictureOnlyButtonInTheLibrarysLook()
{
    QFETCH(bool, byName);
    const QScopedPointer<VemoIconButton> button(
        byName ? new VemoIconButton("four") : new VemoIconButton(filled(kOther)));
    QVERIFY(!button->parent());
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
    QVERIFY(!button->styleSheet().isEmpty());
    QCOMPARE(button->styleSheet(), getStyleSheet("component.icon_button", false));
}

void VemoIconButtonTest::mayBeMadeInItsParent()
{
    QWidget window;
    auto *named = new VemoIconButton("four", &window);
    auto *given = new VemoIconButton(filled(kOther), &window);
    QCOMPARE(named->parentWidget(), &window);
    QCOMPARE(given->parentWidget(), &window);
    window.show();
    QCOMPARE(look(*named), kNormal);
    QCOMPARE(look(*given), kOther);
    QCOMPARE(named->styleSheet(), getStyleSheet("component.icon_button"));
    QCOMPARE(given->popupMode(), QToolButton::InstantPopup);

    const VemoIconButton plain;
    QVERIFY(!plain.parent());
    QVERIFY(plain.icon().isNull());
}

void VemoIconButtonTest::pictureOfANameIsSetAtOnceButItsSizeAtTheNextChange()
{
    VemoIconButton button("four");
    QVERIFY(!button.icon().isNull());
    QCOMPARE(button.iconSize(), QToolButton().iconSize());
    button.show();
    QCOMPARE(button.iconSize(), QSize(factored(32), factored(32)));

    VemoIconButton changed("four");
    changed.applyHoverStyle();
    QCOMPARE(changed.iconSize(), QSize(factored(32), factored(32)));
}

void VemoIconButtonTest::sizeIsThatOfThePictureOnScreen()
{
    // 128 pixels of artwork are 32 on screen, at pixel ratio 2 made of 64 device pixels.
    const Button button;
    const QPixmap picture = getGlobalImage("four");
    QCOMPARE(picture.width(), qRound(factored(32) * picture.devicePixelRatio()));
    QCOMPARE(button.iconSize(), QSize(factored(32), factored(32)));
}

void VemoIconButtonTest::pictureIsSizedByThePixelRatio()
{
    const double ratio = qMax(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
    for (const int size : {48, 49}) {
        const Button button(filled(kOther, size));
        QCOMPARE(button.iconSize(), QSize(qRound(size / ratio), qRound(size / ratio)));
    }
}

void VemoIconButtonTest::givenPictureShowsInEveryState()
{
    Button button(filled(kOther));
    QCOMPARE(look(button), kOther);
    send(button, QEvent::Enter);
    QCOMPARE(look(button), kOther);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(look(button), kOther);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(look(button), kOther);
    button.setEnabled(false);
    QCOMPARE(button.icon().pixmap(24).toImage().pixelColor(5, 5), kOther);
}

void VemoIconButtonTest::pointerPressAndReleaseChangeThePicture()
{
    Button button;
    QCOMPARE(look(button), kNormal);
    send(button, QEvent::Enter);
    QCOMPARE(look(button), kHover);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(look(button), kClick);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(look(button), kNormal); // Although the pointer is still there.
    send(button, QEvent::Enter);
    QCOMPARE(look(button), kHover);
    send(button, QEvent::Leave);
    QCOMPARE(look(button), kNormal);
}

void VemoIconButtonTest::doubleClickIsLikeOtherClicks()
{
    Button button;
    QTest::mouseDClick(&button, Qt::LeftButton);
    QCOMPARE(look(button), kClick);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(look(button), kNormal);
}

void VemoIconButtonTest::leavingKeepsTheHoverPictureWhileFocused()
{
    QWidget window;
    VemoIconButton button("four");
    button.setParent(&window);
    button.setFocusPolicy(Qt::StrongFocus);
    QVERIFY(showActive(&window));
    button.setFocus();
    QVERIFY(button.hasFocus());
    send(button, QEvent::Enter);
    send(button, QEvent::Leave);
    QCOMPARE(look(button), kHover);
    button.clearFocus();
    send(button, QEvent::Leave);
    QCOMPARE(look(button), kNormal);
}

void VemoIconButtonTest::disabledButtonKeepsItsPictureUnderThePointer_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("enter") << int(QEvent::Enter);
    QTest::newRow("leave") << int(QEvent::Leave);
    QTest::newRow("press") << int(QEvent::MouseButtonPress);
    QTest::newRow("release") << int(QEvent::MouseButtonRelease);
}

void VemoIconButtonTest::disabledButtonKeepsItsPictureUnderThePointer()
{
    QFETCH(int, type);
    Button button;
    button.setEnabled(false);
    if (type == QEvent::Enter || type == QEvent::Leave) {
        send(button, QEvent::Type(type));
    } else {
        QMouseEvent event(QEvent::Type(type), button.rect().center(), Qt::LeftButton,
            Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&button, &event);
    }
    QCOMPARE(look(button), kDisable);
}

void VemoIconButtonTest::enabledStateShowsAtOnce()
{
    Button button;
    send(button, QEvent::Enter);
    button.setEnabled(false);
    QCOMPARE(look(button), kDisable);
    button.setEnabled(true);
    QCOMPARE(look(button), kNormal); // Although the pointer is still there.
}

void VemoIconButtonTest::showingStartsAfresh()
{
    Button button;
    send(button, QEvent::Enter);
    button.hide();
    button.show();
    QCOMPARE(look(button), kNormal);

    VemoIconButton disabled("four");
    disabled.setEnabled(false);
    disabled.applyHoverStyle();
    disabled.show();
    QCOMPARE(look(disabled), kDisable);
}

void VemoIconButtonTest::missingStateShowsTheNormalPicture()
{
    Button button("normal");
    QCOMPARE(messages.take(), QStringList({kNoHover, kNoClick, kNoDisable}));
    send(button, QEvent::Enter);
    QCOMPARE(look(button), kOther);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(look(button), kOther);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(look(button), kOther);
}

void VemoIconButtonTest::settersChangeOnePictureForTheNextChange()
{
    Button button(filled(kNormal));
    button.setHoverIcon(filled(kHover));
    button.setPressIcon(filled(kClick));
    button.setDisableIcon(filled(kDisable));
    QCOMPARE(look(button), kNormal);
    send(button, QEvent::Enter);
    QCOMPARE(look(button), kHover);
    button.setHoverIcon(filled(kOther));
    QCOMPARE(look(button), kHover);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(look(button), kClick);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(look(button), kNormal);
    button.setEnabled(false);
    QCOMPARE(look(button), kDisable);
    QCOMPARE(button.iconSize(), VemoIconButton(filled(kNormal)).iconSize());
}

void VemoIconButtonTest::looksCanBeForcedFromOutside()
{
    Button button;
    button.applyHoverStyle();
    QCOMPARE(look(button), kHover);
    button.applyNormalStyle();
    QCOMPARE(look(button), kNormal);
}

void VemoIconButtonTest::newNameReplacesAllPictures()
{
    Button button(filled(kOther));
    button.setAllIcon("four");
    button.applyNormalStyle();
    QCOMPARE(look(button), kNormal);
    QCOMPARE(button.iconSize(), QSize(factored(32), factored(32)));
    button.applyHoverStyle();
    QCOMPARE(look(button), kHover);
    button.setDefaultIcon(filled(kOther));
    QCOMPARE(look(button), kOther);
    button.applyHoverStyle();
    QCOMPARE(look(button), kOther);
}

void VemoIconButtonTest::pictureIsSetBeforeTheButtonReports()
{
    Button button;
    QColor pressed;
    QColor clicked;
    connect(&button, &QToolButton::pressed, this, [&] { pressed = look(button); });
    connect(&button, &QToolButton::clicked, this, [&] { clicked = look(button); });
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(pressed, kClick);
    QCOMPARE(clicked, kNormal);
}

void VemoIconButtonTest::everyMouseButtonShowsThePressedPicture_data()
{
    QTest::addColumn<int>("mouseButton");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void VemoIconButtonTest::everyMouseButtonShowsThePressedPicture()
{
    QFETCH(int, mouseButton);
    Button button;
    QMenu menu; // Only the left button opens it.
    menu.addAction("Rename");
    if (mouseButton != Qt::LeftButton)
        button.setMenu(&menu);
    send(button, QEvent::Enter);
    QTest::mousePress(&button, Qt::MouseButton(mouseButton));
    QCOMPARE(look(button), kClick);
    QTest::mouseRelease(&button, Qt::MouseButton(mouseButton));
    QCOMPARE(look(button), kNormal);
}

void VemoIconButtonTest::otherChangesKeepThePicture_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("style") << int(QEvent::StyleChange);
    QTest::newRow("font") << int(QEvent::FontChange);
    QTest::newRow("palette") << int(QEvent::PaletteChange);
    QTest::newRow("language") << int(QEvent::LanguageChange);
    QTest::newRow("activation") << int(QEvent::ActivationChange);
}

void VemoIconButtonTest::otherChangesKeepThePicture()
{
    QFETCH(int, type);
    Button button;
    send(button, QEvent::Enter);
    send(button, QEvent::Type(type));
    QCOMPARE(look(button), kHover);
}

void VemoIconButtonTest::baseStillActsOnEnterLeaveAndDisabling()
{
    Button button;
    QAction action("Refresh");
    action.setIcon(filled(kOther));
    button.setDefaultAction(&action);
    QSignalSpy hovers(&action, SIGNAL(hovered()));
    send(button, QEvent::Enter);
    QCOMPARE(hovers.count(), 1);

    button.setDown(true);
    button.setEnabled(false);
    QVERIFY(!button.isDown());

    // Nothing is set for a disabled button: the auto-raise base class paints the picture.
    button.setAutoRaise(true);
    QCoreApplication::processEvents();
    const EventCounter paints(&button, QEvent::Paint);
    send(button, QEvent::Leave);
    QTRY_COMPARE(paints.count(), 1);
}

void VemoIconButtonTest::menuOpensOnPress()
{
    Button button;
    QMenu menu;
    menu.addAction("Rename");
    button.setMenu(&menu);
    bool wasOpen = false;
    whileOpen(menu, [&] { wasOpen = true; });
    QTest::mousePress(&button, Qt::LeftButton);
    QVERIFY(wasOpen);
}

void VemoIconButtonTest::pressedPictureGoesWithTheMenu_data()
{
    QTest::addColumn<bool>("hasActionsOnly");
    QTest::newRow("its menu") << false;
    QTest::newRow("a menu of its own actions") << true;
}

void VemoIconButtonTest::pressedPictureGoesWithTheMenu()
{
    QFETCH(bool, hasActionsOnly);
    Button button;
    QMenu menu;
    QAction rename("Rename");
    menu.addAction(&rename);
    if (hasActionsOnly)
        button.addAction(&rename);
    else
        button.setMenu(&menu);
    QColor whileOpen;
    QTimer::singleShot(0, &button, [&] {
        whileOpen = look(button);
        QApplication::activePopupWidget()->close();
    });
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(whileOpen, kClick);
    QCOMPARE(look(button), kNormal); // The menu has received the release.
}

void VemoIconButtonTest::pressedPictureStaysWithoutAMenuOfItsOwn()
{
    // When a pop-up closes, Qt 6 sends an enter event to the widget under the pointer.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    Button button;
    QMenu menu;
    menu.addAction("Rename");
    connect(&button, &QToolButton::pressed, &menu, [&] {
        whileOpen(menu, [] {});
        menu.exec();
    });
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(look(button), kClick);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(look(button), kNormal);
}

void VemoIconButtonTest::mayBeDeletedOrDisabledUnderItsMenu()
{
    QMenu menu;
    menu.addAction("Rename");
    Button disabled;
    disabled.setMenu(&menu);
    whileOpen(menu, [&] { disabled.setEnabled(false); });
    QTest::mousePress(&disabled, Qt::LeftButton);
    QCOMPARE(look(disabled), kDisable);

    QPointer<Button> deleted(new Button);
    deleted->setMenu(&menu);
    whileOpen(menu, [&] { delete deleted; });
    QMouseEvent press(
        QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(deleted, &press);
    QVERIFY(!deleted);
}

void VemoIconButtonTest::nullPictureAndUnknownNameAreBlank()
{
    const Button blank {QPixmap()};
    QVERIFY(blank.icon().isNull());
    const Button unknown("no such name");
    QVERIFY(unknown.icon().isNull());
    QCOMPARE(messages.take(),
        QStringList(QVector<QString>(4, "Cannot load pixmap \"no such name\"").toList()));
}

VEMO_TEST_MAIN(VemoIconButtonTest)
#include "tst_vemoiconbutton.moc"
