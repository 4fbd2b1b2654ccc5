// SPDX-License-Identifier: MIT
#include "designer/pluginfolder.h"
#include "support/testhost.h"
#include "support/vemotest.h"
#include "ui_everywidget.h"

#include <vemo/stylemanager.h>
#include <vemo/vemopagingmodel.h>

#include <QLineEdit>
#include <QUiLoader>

/// What uic makes of a form with every widget of the library.
class GeneratedFormTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void holdsEveryWidgetOfThePlugin();
    void setsWhatTheFormSays();
    void setsTimesAndColumns();
    void makesAPagingBarThatPages();
    void looksAsTheLoadedFormDoes();
};

namespace {

struct Form : Ui::EveryWidget
{
    Form() { setupUi(&window); }

    QWidget window;
};

QImage shown(QWidget *window)
{
    window->show();
    if (!QTest::qWaitForWindowExposed(window))
        return {};
    if (window->focusWidget())
        window->focusWidget()->clearFocus(); // no blinking
    return window->grab().toImage();
}

} // namespace

void GeneratedFormTest::initTestCase()
{
    startDefaultTheme();
    useBuiltPlugins();
}

void GeneratedFormTest::holdsEveryWidgetOfThePlugin()
{
    Form form;
    QStringList names;
    for (const QObject *child : form.window.children()) {
        if (child->isWidgetType())
            names << child->objectName().at(0).toUpper() + child->objectName().mid(1);
    }
    names.sort();
    QCOMPARE(names, formWidgetNames());
}

void GeneratedFormTest::setsWhatTheFormSays()
{
    Form form;
    QCOMPARE(form.vemoButton->styleSheet(), getStyleSheet("component.red_button"));
    QCOMPARE(form.vemoButton->text(), QString("Delete"));
    QVERIFY(!form.vemoIconButton->icon().isNull());
    QVERIFY(form.vemoCheckBox->isChecked());
    QCOMPARE(form.linkLabel->getHyperLink(), QString("https://example.com/licence"));
    QVERIFY(!form.linkLabel->hoverUnderline());
    QCOMPARE(form.vemoLineEdit->getEditText(), QString("30"));
    QCOMPARE(form.vemoLineEdit->getLineEdit()->property("error"), QVariant(true));
    QCOMPARE(form.vemoDateSelector->date(), QDate(2024, 3, 7));
    form.vemoDateSelector->clearDate();
    QCOMPARE(form.vemoDateSelector->currentText(), QString("Any date"));
    QCOMPARE(form.vemoCalanderView->selectedDate(), QDate(2024, 3, 7));
    QCOMPARE(form.vemoTreeWidget->hoverColor(), QColor(238, 243, 248));
    QCOMPARE(form.vemoButtonPath->path(), QString("home/projects/2026"));
}

void GeneratedFormTest::setsTimesAndColumns()
{
    Form form;
    QCOMPARE(form.vemoTimeComboBox->times(), QStringList({"00:00", "06:00", "12:00", "18:00"}));
    QCOMPARE(form.vemoTimeComboBox->currentText(), QString("06:00"));
    QVERIFY(form.vemoTimeComboBox->isEditable());
    QCOMPARE(form.vemoTableWidget->getTable()->columnCount(), 2);
    form.retranslateUi(&form.window); // as after a change of the language
    QCOMPARE(form.vemoTimeComboBox->currentText(), QString("06:00"));
    QCOMPARE(form.vemoTableWidget->columnTexts(), QStringList({"Name|120|1", "Size|80"}));
}

void GeneratedFormTest::makesAPagingBarThatPages()
{
    Form form;
    VemoPagingModel *model = form.vemoPagingBar->pagingModel();
    QCOMPARE(model->pageCount(), 25);
    QSignalSpy changes(form.vemoPagingBar, SIGNAL(sigPageChanged()));
    QVERIFY(QMetaObject::invokeMethod(form.vemoPagingBar, "last_page"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(model->nowPage(), 25);
}

void GeneratedFormTest::looksAsTheLoadedFormDoes()
{
    Form form;
    const QImage generated = shown(&form.window);
    QFile file(VEMO_FORM);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QScopedPointer<QWidget> loadedForm(QUiLoader().load(&file));
    QVERIFY(loadedForm);
    const QImage loaded = shown(loadedForm.data());
    QVERIFY(!generated.isNull());
    if (qEnvironmentVariableIsSet("VEMO_KEEP_PICTURES"))
        generated.save("generatedform.png");
    QCOMPARE(loaded, generated);
}

VEMO_TEST_MAIN(GeneratedFormTest)
#include "tst_generatedform.moc"
