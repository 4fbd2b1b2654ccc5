// SPDX-License-Identifier: MIT
#include "designer/pluginfolder.h"
#include "support/vemotest.h"

#include <QBuffer>
#include <QColor>
#include <QComboBox>
#include <QDate>
#include <QFormBuilder>
#include <QScopedPointer>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

using Widget = QScopedPointer<QWidget>;
using Values = QMap<QString, QVariant>;

class FormFilesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void propertySurvivesWritingAndReading_data();
    void propertySurvivesWritingAndReading();
    void everyPropertyOfOurOwnHasARowAbove();
    void hidesWhatAWidgetSetsItself_data();
    void hidesWhatAWidgetSetsItself();
    void bothReadersMakeTheWholeForm();
    void wholeFormSurvivesWritingAndReading();

private:
    QByteArray written(QWidget *widget);
};

namespace {

/// Writes a widget of the library without its internal children, like Qt Designer: only the widget
/// itself can create these.
class FormWriter : public QFormBuilder
{
protected:
    DomWidget *createDom(QWidget *widget, DomWidget *parent, bool recursive) override
    {
        const bool isOurs = formWidget(widget->metaObject()->className());
        return QFormBuilder::createDom(widget, parent, recursive && !isOurs);
    }
};

QWidget *readByBuilder(QByteArray form)
{
    QBuffer file(&form);
    file.open(QIODevice::ReadOnly);
    QFormBuilder builder;
    builder.addPluginPath(VEMO_PLUGINS "/designer");
    return builder.load(&file);
}

QWidget *readByLoader(QByteArray form)
{
    QBuffer file(&form);
    file.open(QIODevice::ReadOnly);
    return QUiLoader().load(&file);
}

QByteArray everyWidgetForm()
{
    QFile file(VEMO_FORM);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The writable properties added by the library's classes, without those of Qt.
QStringList ownProperties(const QWidget *widget)
{
    QStringList names;
    const QMetaObject *own = widget->metaObject();
    for (int i = 0; i < own->propertyCount(); ++i) {
        const QMetaProperty property = own->property(i);
        const QByteArray owner(property.enclosingMetaObject()->className());
        if (formWidget(owner) && property.isWritable() && property.isDesignable())
            names << property.name();
    }
    return names;
}

/// The properties set in the form: our own, and those of Qt that it uses.
Values valuesIn(QWidget *form)
{
    Values values;
    for (const auto *made : formWidgets()) {
        const QString name = made->name().at(0).toLower() + made->name().mid(1);
        const auto *widget = form->findChild<QWidget *>(name);
        if (!widget || widget->metaObject()->className() != made->name().toLatin1()) {
            values["missing"] = values.value("missing").toString() + " " + name;
            continue;
        }
        const QStringList used {"text", "checked", "currentIndex", "count", "toolTip", "wordWrap",
            "placeholderText", "rowCount", "columnCount"};
        for (const QString &property : ownProperties(widget) + used)
            values.insert(name + "." + property, widget->property(property.toLatin1()));
    }
    return values;
}

QString differences(const Values &actual, const Values &expected)
{
    QString text;
    QDebug out(&text);
    for (auto value = expected.begin(); value != expected.end(); ++value) {
        if (actual.value(value.key()) != value.value())
            out << value.key() << actual.value(value.key()) << "not" << value.value();
    }
    return text;
}

} // namespace

void FormFilesTest::initTestCase()
{
    useBuiltPlugins();
    QVERIFY(!formWidgets().isEmpty());
    QVERIFY(!everyWidgetForm().isEmpty());
}

QByteArray FormFilesTest::written(QWidget *widget)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    FormWriter().save(&file, widget);
    // Of Qt's own properties, such as a label's interaction flags.
    for (const QString &message : messages.take()) {
        if (message != "default: Designer: Flags property are not supported yet.")
            qWarning("%s", qPrintable(message));
    }
    return file.data();
}

void FormFilesTest::propertySurvivesWritingAndReading_data()
{
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *property, const QVariant &value) {
        QTest::newRow(property) << value;
    };
    row("VemoButton.role", 5);
    row("VemoButton.text", "Delete & leave");
    row("VemoIconButton.allIcon", "bt_edit");
    row("VemoCheckBox.checked", true);
    row("VemoRadioButton.checked", true);
    row("VemoSwitch.text", "Share &this folder");
    row("VemoSwitch.checked", true);
    row("VemoLabel.text", QString::fromUtf8("\xe4\xbf\x9d\xe7\x95\x99 <b>30</b>"));
    row("VemoBadge.count", 120);
    row("VemoBadge.maximum", 999);
    row("VemoBadge.zeroVisible", true);
    row("VemoBadge.text", "new");
    row("VemoBadge.dot", true);
    row("VemoBadge.kind", 1);
    row("ClickableLabel.text", "Details");
    row("LinkLabel.hyperLink", "https://example.com/?a=1&b=2");
    row("LinkLabel.hoverUnderline", false);
    row("VemoSpinner.running", true);
    row("VemoSpinner.diameter", 48);
    row("VemoLineEdit.preText", "Keep for");
    row("VemoLineEdit.editText", "30");
    row("VemoLineEdit.postText", "days");
    row("VemoLineEdit.placeholderText", "1 to 99");
    row("VemoLineEdit.error", true);
    row("VemoLineEdit.errorText", "A number from 1 to 99");
    row("VemoLineEdit.clearButtonEnabled", true);
    row("VemoLineEdit.passwordButtonEnabled", true);
    row("VemoLineEdit.captionsVisible", false);
    row("VemoSideBar.collapsed", true);
    row("VemoFilterBar.placeholderText", "Search files");
    row("VemoFilterBar.searchDelay", 300);
    row("VemoFilterBar.clearedByEscape", true);
    row("VemoFilterBar.clearButtonVisible", true);
    row("VemoDateSelector.date", QDate(2024, 3, 7));
    row("VemoDateSelector.placeholder", "Any date");
    row("VemoDateSelector.minimumDate", QDate(2024, 2, 1));
    row("VemoDateSelector.maximumDate", QDate(2094, 4, 30));
    row("VemoDateSelector.firstDayOfWeek", int(Qt::Monday));
    row("VemoDateSelector.displayFormat", "dd/MM/yyyy");
    row("VemoDateSelector.clearable", true);
    row("VemoDateSelector.typingEnabled", true);
    row("VemoDateRangeSelector.start", QDate(2024, 3, 7));
    row("VemoDateRangeSelector.end", QDate(2024, 5, 20));
    row("VemoDateRangeSelector.minimumDate", QDate(2024, 2, 1));
    row("VemoDateRangeSelector.maximumDate", QDate(2094, 4, 30));
    row("VemoDateRangeSelector.displayFormat", "dd/MM/yyyy");
    row("VemoDateRangeSelector.startPlaceholder", "Any date");
    row("VemoDateRangeSelector.endPlaceholder", "No end");
    row("VemoDateRangeSelector.separator", "to");
    row("VemoDateRangeSelector.firstDayOfWeek", int(Qt::Monday));
    row("VemoDateRangeSelector.clearable", true);
    row("VemoDateRangeSelector.typingEnabled", true);
    row("VemoTimeComboBox.times", QStringList({"00:00", "12:00"}));
    row("VemoTimeComboBox.editable", true);
    row("VemoTimeComboBox.customText", "(own)");
    row("VemoTimeComboBox.maxVisibleItems", 7);
    row("VemoCalanderView.minimumDate", QDate(2024, 2, 1));
    row("VemoCalanderView.maximumDate", QDate(2094, 4, 30));
    row("VemoCalanderView.selectedDate", QDate(2024, 3, 7));
    row("VemoCalanderView.firstDayOfWeek", int(Qt::Monday));
    row("VemoTreeWidget.selectedColor", QColor(220, 235, 251));
    row("VemoTreeWidget.hoverColor", QColor(238, 243, 248));
    row("VemoTreeWidget.checkPropagation", true);
    row("VemoTreeWidget.dropSignalsEnabled", true);
    row("VemoTableView.columnTexts", QStringList({"Name|120|0.5", "Size|80"}));
    row("VemoTableWidget.columnTexts", QStringList({"Name|120|0.5", "Kind|90|0", "Size|80"}));
    row("VemoPagingBar.rowLimit", 20);
    row("VemoPagingBar.itemCount", 500);
    row("VemoPagingBar.clamping", true);
    row("VemoPagingBar.rangeVisible", true);
    row("VemoPagingBar.jumpFieldVisible", true);
    row("VemoPagingBar.refreshButtonHidden", true);
    row("VemoPagingBar.footerText", "500 items");
    row("VemoButtonPath.path", "home/R&D/2026");
    row("VemoButtonPath.toolTipsEnabled", true);
    row("VemoButtonPath.siblingMenusEnabled", true);
    row("VemoButtonPath.editable", true);
}

void FormFilesTest::propertySurvivesWritingAndReading()
{
    QFETCH(QVariant, value);
    const QList<QByteArray> names = QByteArray(QTest::currentDataTag()).split('.');
    const Widget widget(formWidget(names[0])->createWidget(nullptr));
    QVERIFY(widget->property(names[1]) != value);
    QVERIFY(widget->setProperty(names[1], value));
    QCOMPARE(widget->property(names[1]), value);

    const QByteArray form = written(widget.data());
    QCOMPARE(form.count("<widget "), 1);
    for (const auto read : {readByBuilder, readByLoader}) {
        const Widget again(read(form));
        QVERIFY(again);
        QCOMPARE(again->metaObject()->className(), names[0].constData());
        QCOMPARE(again->property(names[1]), value);
    }
}

void FormFilesTest::everyPropertyOfOurOwnHasARowAbove()
{
    QFile source(VEMO_SOURCE_DIR "/tests/designer/tst_formfiles.cpp");
    QVERIFY(source.open(QIODevice::ReadOnly));
    const QByteArray rows = source.readAll();
    int count = 0;
    for (auto *made : formWidgets()) {
        const Widget widget(made->createWidget(nullptr));
        for (const QString &property : ownProperties(widget.data())) {
            const QString name = made->name() + "." + property;
            QVERIFY2(rows.contains("row(\"" + name.toLatin1() + '"'), qPrintable(name));
            ++count;
        }
    }
    QCOMPARE(count, 69);
}

void FormFilesTest::hidesWhatAWidgetSetsItself_data()
{
    QTest::addColumn<QString>("property");
    QTest::newRow("VemoIconButton") << "icon";
    QTest::newRow("VemoDateSelector") << "currentText";
    QTest::newRow("VemoTimeComboBox") << "currentText";
}

void FormFilesTest::hidesWhatAWidgetSetsItself()
{
    QFETCH(QString, property);
    const Widget widget(formWidget(QTest::currentDataTag())->createWidget(nullptr));
    const QMetaObject *meta = widget->metaObject();
    const QMetaProperty hidden = meta->property(meta->indexOfProperty(qPrintable(property)));
    QVERIFY(hidden.isValid());
    QVERIFY(!hidden.isDesignable());
    QVERIFY(!hidden.isStored());
    QVERIFY(!written(widget.data()).contains("\"" + property.toLatin1() + "\""));
}

void FormFilesTest::bothReadersMakeTheWholeForm()
{
    const Widget loaded(readByLoader(everyWidgetForm()));
    QVERIFY(loaded);
    const Values values = valuesIn(loaded.data());
    QCOMPARE(values.value("missing"), QVariant());
    QCOMPARE(values.value("vemoButton.role").toInt(), 5);
    QCOMPARE(values.value("vemoDateSelector.date").toDate(), QDate(2024, 3, 7));
    QCOMPARE(values.value("vemoDateSelector.count").toInt(), 1);
    QCOMPARE(values.value("vemoTimeComboBox.count").toInt(), 5); // The custom one is first.
    QCOMPARE(values.value("vemoTimeComboBox.currentIndex").toInt(), 2);
    QCOMPARE(values.value("vemoComboBox.currentIndex").toInt(), 1);
    QCOMPARE(values.value("vemoPagingBar.footerText").toString(), QString("500 items"));

    const Widget built(readByBuilder(everyWidgetForm()));
    QVERIFY(built);
    QCOMPARE(differences(valuesIn(built.data()), values), QString());
}

void FormFilesTest::wholeFormSurvivesWritingAndReading()
{
    const Widget form(readByBuilder(everyWidgetForm()));
    // Qt's builder writes no items of any combo box.
    form->findChild<QComboBox *>("vemoComboBox")->clear();
    const Values values = valuesIn(form.data());
    const QByteArray again = written(form.data());
    QCOMPARE(again.count("<widget "), formWidgets().size() + 1);
    const Widget built(readByBuilder(again));
    QCOMPARE(differences(valuesIn(built.data()), values), QString());
    const Widget loaded(readByLoader(again));
    QCOMPARE(differences(valuesIn(loaded.data()), values), QString());
}

VEMO_TEST_MAIN(FormFilesTest)
#include "tst_formfiles.moc"
