// SPDX-License-Identifier: MIT
// The example with resources of its own, from within.
#include "examples/ownresources/startup.h"
#include "examples/ownresources/teawindow.h"

#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QLabel>
#include <QTemporaryDir>

class TeaWindowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsInTheLanguageAskedFor_data();
    void startsInTheLanguageAskedFor();
    void doesNotStartWithoutStrings();
    void eitherButtonSaysThatTheTeaIsReady_data();
    void eitherButtonSaysThatTheTeaIsReady();

private:
    QTemporaryDir m_cache;
};

void TeaWindowTest::doesNotStartWithoutStrings()
{
    QVERIFY(!startUp(m_cache.path(), m_cache.path(), "enu"));
}

void TeaWindowTest::startsInTheLanguageAskedFor_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    addRow("German", "deu", "Tee");
    addRow("a language without texts", "kor", "Tea");
    addRow("English", "enu", "Tea");
}

void TeaWindowTest::startsInTheLanguageAskedFor()
{
    QFETCH(const QString, language);
    QVERIFY(startUp(VEMO_OWN_RESOURCES, m_cache.path(), language));
    messages.take(); // The folders are registered again for each row.
    QTEST(TeaWindow().windowTitle(), "title");
}

void TeaWindowTest::eitherButtonSaysThatTheTeaIsReady_data()
{
    QTest::addColumn<bool>("isPicture");
    QTest::newRow("the button with words") << false;
    QTest::newRow("the picture") << true;
}

void TeaWindowTest::eitherButtonSaysThatTheTeaIsReady()
{
    QFETCH(const bool, isPicture);
    TeaWindow window;
    window.show();
    QAbstractButton *button = window.findChild<VemoButton *>();
    if (isPicture)
        button = window.findChild<VemoIconButton *>();
    QTest::mouseClick(button, Qt::LeftButton);

    auto *sheet = window.findChild<VemoMessageSheet *>();
    QVERIFY(sheet && sheet->isVisible());
    QTest::mouseClick(sheet->button(QMessageBox::Ok), Qt::LeftButton);
    QTRY_VERIFY(!window.findChild<VemoMask *>());
    QVERIFY(!window.findChild<VemoMessageSheet *>());
}

VEMO_TEST_MAIN(TeaWindowTest)
#include "tst_teawindow.moc"
