// SPDX-License-Identifier: MIT
// The example with widgets of the library and of Qt in one window, from within.
#include "examples/settings/settingswindow.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <QSpinBox>

class SettingsWindowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void init();
    void cleanup();
    void folderIsRemovedOnceConfirmed_data();
    void folderIsRemovedOnceConfirmed();
    void enteredPatternIsAdded_data();
    void enteredPatternIsAdded();
    void savingIsReported();
    void sliderAndNumberFollowEachOther();

private:
    void click(const QString &caption);

    QScopedPointer<SettingsWindow> m_window;
};

void SettingsWindowTest::init()
{
    VemoTest::init();
    m_window.reset(new SettingsWindow);
    m_window->show();
}

void SettingsWindowTest::cleanup()
{
    QTRY_VERIFY(!m_window->findChild<VemoMask *>()); // Each sheet leaves nothing.
    m_window.reset();
    VemoTest::cleanup();
}

void SettingsWindowTest::click(const QString &caption)
{
    for (VemoButton *button : m_window->findChildren<VemoButton *>()) {
        if (button->text() == caption)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    QFAIL(qPrintable("There is no button " + caption));
}

void SettingsWindowTest::folderIsRemovedOnceConfirmed_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("folders");
    QTest::newRow("confirmed") << int(QMessageBox::Apply) << 2;
    QTest::newRow("cancelled") << int(QMessageBox::Discard) << 3;
}

void SettingsWindowTest::folderIsRemovedOnceConfirmed()
{
    QFETCH(const int, button);
    click("Remove");
    auto *sheet = m_window->findChild<VemoMessageSheet *>();
    QVERIFY(sheet && sheet->isVisible());
    sheet->button(QMessageBox::StandardButton(button))->click();
    QTEST(m_window->findChild<QListWidget *>()->count(), "folders");
}

void SettingsWindowTest::enteredPatternIsAdded_data()
{
    QTest::addColumn<QString>("entered");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("isAdded");
    QTest::newRow("entered") << "*.log" << int(Qt::Key_Return) << true;
    QTest::newRow("nothing entered") << "" << int(Qt::Key_Return) << false;
    QTest::newRow("cancelled") << "*.log" << int(Qt::Key_Escape) << false;
}

void SettingsWindowTest::enteredPatternIsAdded()
{
    QFETCH(const QString, entered);
    QFETCH(const int, key);
    click("Add pattern");
    auto *sheet = m_window->findChild<VemoInputSheet *>();
    QVERIFY(sheet && sheet->isVisible());
    sheet->getLineEdit()->setText(entered);
    QTest::keyClick(sheet->getLineEdit(), Qt::Key(key));
    bool isListed = false;
    for (const QComboBox *box : m_window->findChildren<QComboBox *>())
        isListed |= box->findText("*.log") >= 0;
    QTEST(isListed, "isAdded");
}

void SettingsWindowTest::savingIsReported()
{
    click("Save");
    auto *sheet = m_window->findChild<VemoMessageSheet *>();
    QVERIFY(sheet && sheet->isVisible());
    QTest::keyClick(m_window.data(), Qt::Key_Return);
    QVERIFY(!sheet->isVisible());
}

void SettingsWindowTest::sliderAndNumberFollowEachOther()
{
    auto *slider = m_window->findChild<QSlider *>();
    const auto numbers = m_window->findChildren<QSpinBox *>();
    const auto limit = std::find_if(numbers.begin(), numbers.end(),
        [](const QSpinBox *number) { return number->suffix() == " Mbit/s"; });
    QVERIFY(slider && limit != numbers.end());
    slider->setValue(70);
    QCOMPARE((*limit)->value(), 70);
    (*limit)->setValue(7);
    QCOMPARE(slider->value(), 7);
}

VEMO_TEST_MAIN(SettingsWindowTest)
#include "tst_settingswindow.moc"
