// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/page.h"
#include "gallery/pagelist.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QAccessible>
#include <QComboBox>
#include <QRadioButton>
#include <QSet>

/// The accessible interfaces on the gallery's pages.
class AccessibilityTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void everyControlHasARoleAndAName_data();
    void everyControlHasARoleAndAName();
};

namespace {

bool isInteractive(QAccessible::Role role)
{
    static const QSet<int> roles {QAccessible::PushButton, QAccessible::ButtonMenu,
        QAccessible::ButtonDropDown, QAccessible::CheckBox, QAccessible::RadioButton,
        QAccessible::ComboBox, QAccessible::EditableText, QAccessible::SpinBox, QAccessible::Link};
    return roles.contains(role);
}

QString described(QAccessibleInterface *accessible)
{
    const QObject *object = accessible->object();
    return QString("%1 \"%2\" in %3")
        .arg(object->metaObject()->className(), object->objectName(),
            object->parent()->metaObject()->className());
}

struct Findings
{
    int controls = 0;
    QStringList nameless;
    QStringList mistaken; ///< radio buttons announced as something else
};

void look(QAccessibleInterface *accessible, Findings &findings)
{
    if (!accessible || !accessible->isValid() || accessible->state().invisible)
        return;
    if (isInteractive(accessible->role())) {
        ++findings.controls;
        if (accessible->text(QAccessible::Name).isEmpty())
            findings.nameless += described(accessible);
        const bool isRadio = qobject_cast<QRadioButton *>(accessible->object());
        if (isRadio && accessible->role() != QAccessible::RadioButton)
            findings.mistaken += described(accessible);
    }
    // What a combo box holds is announced with it.
    if (accessible->role() == QAccessible::ComboBox)
        return;
    for (int i = 0; i < accessible->childCount(); ++i)
        look(accessible->child(i), findings);
}

} // namespace

void AccessibilityTest::everyControlHasARoleAndAName_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("mustHaveControls");
    const QStringList full {"Buttons", "Fields", "Choices", "Foot bar", "Focus order"};
    for (int index = 0; index < pageTitles().size(); ++index) {
        const QString title = pageTitles().at(index);
        QTest::newRow(qPrintable(title)) << index << full.contains(title);
    }
}

void AccessibilityTest::everyControlHasARoleAndAName()
{
    QFETCH(int, index);
    QFETCH(bool, mustHaveControls);
    const Options options;
    const PageEntry entry = pages()[static_cast<size_t>(index)];
    Page page(entry.title, options);
    entry.build(page);
    page.show();
    Findings findings;
    look(QAccessible::queryAccessibleInterface(&page), findings);
    QVERIFY(findings.controls > 0 || !mustHaveControls);
    QVERIFY2(findings.nameless.isEmpty(), qPrintable(findings.nameless.join('\n')));
    QVERIFY2(findings.mistaken.isEmpty(), qPrintable(findings.mistaken.join('\n')));
}

VEMO_TEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
