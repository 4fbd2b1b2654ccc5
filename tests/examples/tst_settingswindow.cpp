// SPDX-License-Identifier: MIT
// The example with widgets of the library and of Qt in one window, from within.
#include "examples/settings/settingswindow.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QScopeGuard>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>

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
    void captionsAreBesideTheirFields_data();
    void captionsAreBesideTheirFields();

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

void SettingsWindowTest::captionsAreBesideTheirFields_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("folders") << 0;
    QTest::newRow("schedule") << 1;
}

void SettingsWindowTest::captionsAreBesideTheirFields()
{
    QFETCH(const int, page);
    const QFont before = QApplication::font();
    const auto restore = qScopeGuard([before] { QApplication::setFont(before); });
    QFont small = before;
    small.setPointSize(8); // With the large font of this platform the captions fill their rows.
    QApplication::setFont(small);
    m_window.reset(new SettingsWindow);
    auto *pages = m_window->findChild<QTabWidget *>();
    pages->setCurrentIndex(page);
    m_window->grab(); // lays out the page
    int captions = 0;
    for (const QFormLayout *form : pages->currentWidget()->findChildren<QFormLayout *>()) {
        for (int row = 0; row < form->rowCount(); ++row) {
            const QLayoutItem *caption = form->itemAt(row, QFormLayout::LabelRole);
            if (!caption)
                continue;
            ++captions;
            const QLayoutItem *field = form->itemAt(row, QFormLayout::FieldRole);
            const int distance = caption->geometry().center().y() - field->geometry().center().y();
            QVERIFY2(qAbs(distance) <= 1, qPrintable(QString("row %1: %2").arg(row).arg(distance)));
        }
    }
    QVERIFY(captions > 2);
}

VEMO_TEST_MAIN(SettingsWindowTest)
#include "tst_settingswindow.moc"
