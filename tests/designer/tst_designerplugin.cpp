// SPDX-License-Identifier: MIT
#include "designer/pluginfolder.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/imagemanager.h>
#include <vemo/linklabel.h>
#include <vemo/vemobutton.h>

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QAccessible>
#include <QScopedPointer>
#include <QXmlStreamReader>

#include <cstdio>

/// Tests only perform a host's start-up in separate processes.
class DesignerPluginTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useBuiltPlugins(); }
    void describesEachWidget_data();
    void describesEachWidget();
    void givesEachWidgetAFormToStartFrom_data() { describesEachWidget_data(); }
    void givesEachWidgetAFormToStartFrom();
    void createsEachWidgetWithoutAHostsStartUp_data() { describesEachWidget_data(); }
    void createsEachWidgetWithoutAHostsStartUp();
    void drawsIconsForTheScreensRatio();
    void makesWidgetsThatAreTheLibrarysOwn();
    void leavesItsCodeInPlaceWhenUnloaded();
    void keepsTheStartUpThatItsHostDid();
    void takesItsTemporaryFolderAway();
    void makesNothingWhereTheThemeCannotStart();
};

namespace {

int shownHueCount(const QPixmap &picture)
{
    const QImage image = picture.toImage();
    QSet<QRgb> opaque;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                opaque.insert(image.pixel(x, y));
        }
    }
    return opaque.size();
}

QString attribute(const QXmlStreamReader &xml, const char *name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

int createInChild(const QString &scenario)
{
    useBuiltPlugins();
    QString hostFolder;
    if (scenario == "started") {
        startDefaultTheme();
        hostFolder = ImageManager::getInstance().getTempImageFolder();
    }
    const QScopedPointer<QWidget> button(formWidget("VemoButton")->createWidget(nullptr));
    if (scenario == "no folder")
        return button ? 1 : 0;
    const QString folder = ImageManager::getInstance().getTempImageFolder();
    std::fprintf(stderr, "%s", qPrintable(folder));
    const bool isExpected = scenario == "started" ? folder == hostFolder : QDir(folder).exists();
    return button && isExpected ? 0 : 1;
}

} // namespace

void DesignerPluginTest::describesEachWidget_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : formWidgetNames())
        QTest::newRow(qPrintable(name)) << name;
}

void DesignerPluginTest::describesEachWidget()
{
    QFETCH(QString, name);
    const auto *widget = formWidget(name);
    QCOMPARE(widget->group(), QString("Vemo Widgets"));
    QCOMPARE(widget->includeFile(), "<vemo/" + name + ">");
    QVERIFY(!widget->toolTip().isEmpty());
    QVERIFY(widget->whatsThis().size() > widget->toolTip().size());
    QVERIFY(!widget->isContainer());
    QVERIFY(!widget->icon().isNull());
    QVERIFY(shownHueCount(widget->icon().pixmap(88)) > 1);
    int same = 0;
    for (const auto *other : formWidgets())
        same += other->toolTip() == widget->toolTip() ? 1 : 0;
    QCOMPARE(same, 1);
}

void DesignerPluginTest::givesEachWidgetAFormToStartFrom()
{
    QFETCH(QString, name);
    QXmlStreamReader xml(formWidget(name)->domXml());
    QStringList classes;
    QString objectName;
    QString extends;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("widget")) {
            classes << attribute(xml, "class");
            objectName = attribute(xml, "name");
        } else if (xml.name() == QLatin1String("class")) {
            classes << xml.readElementText();
        } else if (xml.name() == QLatin1String("extends")) {
            extends = xml.readElementText();
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(classes, QStringList({name, name}));
    QCOMPARE(objectName, name.at(0).toLower() + name.mid(1));
    const QScopedPointer<QWidget> made(formWidget(name)->createWidget(nullptr));
    QVERIFY(made->inherits(qPrintable(extends)));
    QVERIFY(extends != name);
}

void DesignerPluginTest::createsEachWidgetWithoutAHostsStartUp()
{
    QFETCH(QString, name);
    QWidget form;
    QWidget *made = formWidget(name)->createWidget(&form);
    QVERIFY(made);
    QCOMPARE(made->parentWidget(), &form);
    QCOMPARE(made->metaObject()->className(), qPrintable(name));
    if (name == "VemoBadge")
        made->setProperty("text", "1"); // Deliberate: without a text it is hidden.
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QVERIFY(made->isVisible());
    QVERIFY(!made->size().isEmpty());
}

void DesignerPluginTest::drawsIconsForTheScreensRatio()
{
    QWidget form;
    form.winId();
    const qreal ratio = form.devicePixelRatioF();
    for (const auto *widget : formWidgets()) {
        const QPixmap picture = widget->icon().pixmap(form.windowHandle(), QSize(22, 22));
        QCOMPARE(picture.devicePixelRatio(), ratio);
        QCOMPARE(picture.size(), QSize(22, 22) * ratio);
    }
}

void DesignerPluginTest::makesWidgetsThatAreTheLibrarysOwn()
{
    const QScopedPointer<QWidget> button(formWidget("VemoButton")->createWidget(nullptr));
    QVERIFY(qobject_cast<VemoButton *>(button.data()));
    const QScopedPointer<QWidget> link(formWidget("LinkLabel")->createWidget(nullptr));
    QVERIFY(dynamic_cast<LinkLabel *>(link.data()));
    QCOMPARE(QAccessible::queryAccessibleInterface(link.data())->role(), QAccessible::Link);
}

void DesignerPluginTest::leavesItsCodeInPlaceWhenUnloaded()
{
    const QScopedPointer<QWidget> left(formWidget("VemoTimeComboBox")->createWidget(nullptr));
    QVERIFY(unloadPlugin());
    // All of it in the plug-in: its class, its property, its destructor.
    QCOMPARE(left->metaObject()->className(), "VemoTimeComboBox");
    QVERIFY(left->setProperty("maxVisibleItems", 3));
    QCOMPARE(left->property("maxVisibleItems").toInt(), 3);
    QVERIFY(!formWidgets().isEmpty());
}

void DesignerPluginTest::keepsTheStartUpThatItsHostDid()
{
    const ChildResult child = runChild("started");
    QCOMPARE(child.status, QProcess::NormalExit);
    QVERIFY2(child.exitCode == 0, qPrintable(child.errorOutput));
    QVERIFY2(!child.errorOutput.contains(' '), qPrintable(child.errorOutput)); // no warning either
}

void DesignerPluginTest::takesItsTemporaryFolderAway()
{
    const QTemporaryDir temporary;
    const ChildResult child = runChild("alone", {"TMPDIR=" + temporary.path()});
    QVERIFY2(child.exitCode == 0, qPrintable(child.errorOutput));
    QVERIFY2(child.errorOutput.startsWith(temporary.path()), qPrintable(child.errorOutput));
    QVERIFY(!QDir(child.errorOutput).exists());
    QVERIFY(QDir(temporary.path()).isEmpty());
}

void DesignerPluginTest::makesNothingWhereTheThemeCannotStart()
{
    // Not writable for anyone, including root.
    const ChildResult child = runChild("no folder", {"TMPDIR=/proc"});
    QCOMPARE(child.status, QProcess::NormalExit);
    QCOMPARE(child.exitCode, 0);
    QVERIFY2(child.errorOutput.contains("debug.message.warning: Cannot write to user data folder"),
        qPrintable(child.errorOutput));
}

VEMO_TEST_MAIN_WITH_CHILD(DesignerPluginTest, createInChild)
#include "tst_designerplugin.moc"
