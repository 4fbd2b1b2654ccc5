// SPDX-License-Identifier: MIT
#include <vemo/linklabel.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolabel.h>
#include <vemo/vemomenu.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QResizeEvent>

// QWidget's own handlers of these events are empty. The functions here replace them for the
// library, so that calls can be detected.
namespace {
QStringList called;
} // namespace

void QWidget::enterEvent(VemoEnterEvent *)
{
    called += "enter";
}

void QWidget::leaveEvent(QEvent *)
{
    called += "leave";
}

void QWidget::showEvent(QShowEvent *)
{
    called += "show";
}

void QWidget::resizeEvent(QResizeEvent *)
{
    called += "resize";
}

/// The handlers of the base class that the controls call.
class BaseHandlersTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void cleanup()
    {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        VemoTest::cleanup();
    }
    void baseHandlerIsCalled_data();
    void baseHandlerIsCalled();
};

namespace {

using Make = QWidget *(*)();

QWidget *newLink()
{
    return new LinkLabel("Licence");
}

QWidget *newDisabledLink()
{
    QWidget *link = newLink();
    link->setEnabled(false);
    return link;
}

QWidget *newIconButton()
{
    return new VemoIconButton("bt_add");
}

QWidget *newDisabledIconButton()
{
    QWidget *button = newIconButton();
    button->setEnabled(false);
    return button;
}

QWidget *newLabel()
{
    return new VemoLabel("Files");
}

QWidget *newMenu()
{
    return new VemoMenu;
}

} // namespace

Q_DECLARE_METATYPE(Make)

void BaseHandlersTest::baseHandlerIsCalled_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("handlers");
    const auto row = [](const char *name, Make make, QEvent::Type type, const char *handler) {
        QTest::newRow(name) << make << int(type) << QStringList(handler);
    };
    row("link entered", newLink, QEvent::Enter, "enter");
    row("link left", newLink, QEvent::Leave, "leave");
    row("disabled link entered", newDisabledLink, QEvent::Enter, "enter");
    row("disabled link left", newDisabledLink, QEvent::Leave, "enter"); // Deliberate.
    row("icon button shown", newIconButton, QEvent::Show, "show");
    row("disabled icon button shown", newDisabledIconButton, QEvent::Show, "show");
    row("label resized", newLabel, QEvent::Resize, "resize");
    row("menu shown", newMenu, QEvent::Show, "show");
}

void BaseHandlersTest::baseHandlerIsCalled()
{
    QFETCH(Make, make);
    QFETCH(int, type);
    QFETCH(QStringList, handlers);
    const QScopedPointer<QWidget> widget(make());
    called.clear();
    if (type == QEvent::Resize) {
        QResizeEvent event({20, 20}, {10, 10});
        QApplication::sendEvent(widget.data(), &event);
    } else if (type == QEvent::Show) {
        QShowEvent event;
        QApplication::sendEvent(widget.data(), &event);
    } else {
        QEvent event {QEvent::Type(type)};
        QApplication::sendEvent(widget.data(), &event);
    }
    QCOMPARE(called, handlers);
}

VEMO_TEST_MAIN(BaseHandlersTest)
#include "tst_basehandlers.moc"
