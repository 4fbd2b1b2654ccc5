// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemopagingbar.h>

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>

namespace {

QString text(const char *key)
{
    return ComponentStrings::getInstance().getString(key);
}

/// Chooses a language, and waits until every widget has been told.
void speak(const QString &code)
{
    ComponentStrings::getInstance().changeStrings(defaultThemeStrings(code));
    QCoreApplication::sendPostedEvents();
}

/// All that a widget and its parts show or announce.
QStringList textsIn(QWidget *root)
{
    QStringList texts;
    for (QWidget *widget : root->findChildren<QWidget *>() + QList<QWidget *> {root}) {
        texts << widget->toolTip() << widget->accessibleName();
        if (const auto *button = qobject_cast<QAbstractButton *>(widget))
            texts << button->text();
        if (const auto *table = qobject_cast<QTableWidget *>(widget);
            table && table->rowCount() == 1) {
            for (int column = 0; column < table->columnCount(); ++column)
                texts << table->item(0, column)->data(Qt::AccessibleTextRole).toString()
                      << table->item(0, column)->text();
        }
        if (const auto *button = qobject_cast<QToolButton *>(widget); button && button->menu()) {
            for (const QAction *action : button->menu()->actions())
                texts << action->text();
        }
    }
    texts.removeAll(QString());
    return texts;
}

using Make = QWidget *(*)();

} // namespace

Q_DECLARE_METATYPE(Make)

class LanguageChangeTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void cleanup();
    void aWidgetSpeaksAsIfMadeInThatLanguage_data();
    void aWidgetSpeaksAsIfMadeInThatLanguage();
    void textsOfTheHostStay();
    void customCaptionsStay();
    void aMonthKeepsItsPlace();
    void theLanguagesAreThoseOfTheTheme();
    void aTableIsCompletedInEnglish();
    void anUnknownLanguageIsWarnedAbout();
};

void LanguageChangeTest::cleanup()
{
    speak("enu");
    VemoTest::cleanup();
}

void LanguageChangeTest::aWidgetSpeaksAsIfMadeInThatLanguage_data()
{
    QTest::addColumn<Make>("make");
    addRow("paging bar", Make([]() -> QWidget * { return new VemoPagingBar(nullptr); }));
    addRow("calendar", Make([]() -> QWidget * { return new VemoCalanderView(nullptr); }));
    addRow("input sheet", Make([]() -> QWidget * { return new VemoInputSheet({}, nullptr); }));
    addRow("field with a clear button", Make([]() -> QWidget * {
        auto *edit = new VemoLineEdit;
        edit->setClearButtonEnabled(true);
        edit->setClearButtonEnabled(true);
        return edit;
    }));
    addRow("field with a password button", Make([]() -> QWidget * {
        auto *edit = new VemoLineEdit;
        edit->setPasswordButtonEnabled(true);
        return edit;
    }));
    addRow("filter with a clear button", Make([]() -> QWidget * {
        auto *bar = new VemoFilterBar;
        bar->setClearButtonVisible(true);
        return bar;
    }));
    addRow("date field with a clear button", Make([]() -> QWidget * {
        auto *field = new VemoDateSelector({}, nullptr);
        field->setClearable(true);
        return field;
    }));
    addRow("information", Make([]() -> QWidget * {
        return new VemoMessageSheet(VemoMessageSheet::Information, nullptr);
    }));
    addRow("confirmation with reset", Make([]() -> QWidget * {
        return new VemoMessageSheet(VemoMessageSheet::ConfirmReset, nullptr);
    }));
    addRow("upgrade", Make([]() -> QWidget * {
        return new VemoMessageSheet(VemoMessageSheet::Upgrading, nullptr);
    }));
}

void LanguageChangeTest::aWidgetSpeaksAsIfMadeInThatLanguage()
{
    QFETCH(Make, make);
    const std::unique_ptr<QWidget> widget(make());
    const QStringList english = textsIn(widget.get());
    speak("trk");
    const std::unique_ptr<QWidget> turkish(make());
    QVERIFY(textsIn(widget.get()) != english);
    QCOMPARE(textsIn(widget.get()), textsIn(turkish.get()));
    speak("jpn");
    speak("enu");
    QCOMPARE(textsIn(widget.get()), english);
}

void LanguageChangeTest::textsOfTheHostStay()
{
    VemoPagingBar bar(nullptr);
    auto *refresh = bar.findChildren<VemoIconButton *>().last();
    for (VemoIconButton *button : bar.findChildren<VemoIconButton *>()) {
        if (button->accessibleName() == text("pagebar_refresh"))
            refresh = button;
    }
    refresh->setAccessibleName("Read again");
    VemoCalanderView view(nullptr);
    view.setAccessibleName("Day of birth");
    view.findChild<VemoButton *>()->setText("Now");
    VemoLineEdit edit;
    edit.setPasswordButtonEnabled(true);
    auto *show = edit.getLineEdit()->findChild<QAction *>("vemo_password_action");
    show->setText("Show the key");
    VemoDateSelector date({}, nullptr);
    date.setClearable(true);
    auto *clear = date.findChild<VemoIconButton *>();
    clear->setAccessibleName("No date");
    speak("deu");
    QCOMPARE(clear->accessibleName(), QString("No date"));
    QCOMPARE(show->text(), QString("Show the key"));
    QCOMPARE(refresh->accessibleName(), QString("Read again"));
    QCOMPARE(view.accessibleName(), QString("Day of birth"));
    QCOMPARE(view.findChild<VemoButton *>()->text(), QString("Now"));
}

void LanguageChangeTest::customCaptionsStay()
{
    MsgBoxCustomBtnText captions;
    captions.applyText = "Delete";
    VemoMessageSheet sheet(VemoMessageSheet::Confirm, "Text", captions, nullptr);
    VemoMessageSheet changed(VemoMessageSheet::Confirm, "Text", nullptr);
    changed.button(QMessageBox::Discard)->setText("Keep");
    speak("deu");
    QCOMPARE(sheet.button(QMessageBox::Apply)->text(), QString("Delete"));
    QCOMPARE(sheet.button(QMessageBox::Discard)->text(), text("cancel"));
    QCOMPARE(changed.button(QMessageBox::Discard)->text(), QString("Keep"));
    QCOMPARE(changed.button(QMessageBox::Apply)->text(), text("ok"));
}

void LanguageChangeTest::aMonthKeepsItsPlace()
{
    VemoCalanderView view(nullptr);
    view.setCurrentPage(2024, 3);
    speak("deu");
    QCOMPARE(view.findChild<QToolButton *>("qt_calendar_monthbutton")->text(), text("month_mar"));
}

void LanguageChangeTest::theLanguagesAreThoseOfTheTheme()
{
    QStringList codes;
    for (const DefaultThemeLanguage &language : defaultThemeLanguages()) {
        codes += language.code + ".json";
        QVERIFY(!language.nativeName.isEmpty());
        QVERIFY(language.locale != QLocale::c());
    }
    QCOMPARE(codes, QDir(":/vemo/theme/strings").entryList({"*.json"}, QDir::Files, QDir::Name));
}

void LanguageChangeTest::aTableIsCompletedInEnglish()
{
    const QMap<QString, QString> english = defaultThemeStrings("enu");
    const QMap<QString, QString> german = defaultThemeStrings("deu");
    QCOMPARE(german.keys(), english.keys());
    QVERIFY(german["cancel"] != english["cancel"]);
}

void LanguageChangeTest::anUnknownLanguageIsWarnedAbout()
{
    QCOMPARE(defaultThemeStrings("xyz"), defaultThemeStrings("enu"));
    QCOMPARE(messages.take(), QStringList("No strings for language \"xyz\""));
}

VEMO_TEST_MAIN(LanguageChangeTest)
#include "tst_languagechange.moc"
