// SPDX-License-Identifier: MIT
// Sixteen nested sheets end in a random order, each in a random way. VEMO_SHEET_ORDERS sets the
// number of orders.
#include "stress/widgetkinds.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <numeric>

namespace {

constexpr int kDepth = 16;

struct OpenSheet
{
    QPointer<VemoSheet> sheet;
    int code = 0; ///< what exec() must return
    bool isMessage = false;
};

/// Opens nested sheets, then ends them in the order of a seed.
class Nest : public QObject
{
public:
    Nest(QWidget *window, quint32 seed) : m_window(window), m_random(seed) { }

    void open()
    {
        const int number = int(m_sheets.size());
        const bool isMessage = m_random.bounded(2) == 0;
        m_sheets.push_back({newSheet(isMessage), 0, isMessage});
        QTimer::singleShot(0, this, [this] { goOn(); });
        const QPointer<VemoSheet> sheet = m_sheets[size_t(number)].sheet;
        const int code = isMessage ? static_cast<VemoMessageSheet *>(sheet.data())->exec()
                                   : static_cast<VemoInputSheet *>(sheet.data())->exec();
        if (code != m_sheets[size_t(number)].code)
            m_wrong += QString("sheet %1 returned %2").arg(number).arg(code);
        ++m_returned;
    }

    int returned() const { return m_returned; }
    QStringList wrong() const { return m_wrong; }

private:
    VemoSheet *newSheet(bool isMessage)
    {
        VemoSheet *sheet = nullptr;
        if (isMessage)
            sheet = new VemoMessageSheet(VemoMessageSheet::Confirm, "text", m_window);
        else
            sheet = new VemoInputSheet("text", m_window);
        if (m_random.bounded(4) != 0)
            VemoMask::createMask(sheet, m_window, QColor(0, 0, 0, 20));
        return sheet;
    }

    void goOn()
    {
        if (m_sheets.size() < kDepth)
            return open();
        m_order.resize(kDepth);
        std::iota(m_order.begin(), m_order.end(), 0);
        for (int i = kDepth - 1; i > 0; --i)
            std::swap(m_order[i], m_order[m_random.bounded(i + 1)]);
        endNext();
    }

    void endNext()
    {
        if (m_order.isEmpty())
            return;
        OpenSheet &open = m_sheets[size_t(m_order.takeLast())];
        QTimer::singleShot(0, this, [this] { endNext(); });
        switch (m_random.bounded(3)) {
        case 0:
            delete open.sheet;
            return;
        case 1:
            QMetaObject::invokeMethod(open.sheet, "quit");
            return;
        default:
            open.code = QDialogButtonBox::Apply;
            if (open.isMessage)
                static_cast<VemoMessageSheet *>(open.sheet.data())->done(open.code);
            else
                static_cast<VemoInputSheet *>(open.sheet.data())->done(open.code);
        }
    }

    QWidget *m_window;
    QRandomGenerator m_random;
    std::vector<OpenSheet> m_sheets;
    QVector<int> m_order;
    QStringList m_wrong;
    int m_returned = 0;
};

} // namespace

class SheetOrdersTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void nestedSheetsEndInAnyOrder();
};

void SheetOrdersTest::nestedSheetsEndInAnyOrder()
{
    const int orders = stressNumber("VEMO_SHEET_ORDERS", 20);
    for (int seed = 1; seed <= orders; ++seed) {
        QWidget window;
        window.resize(600, 400);
        window.show();
        Nest nest(&window, quint32(seed));
        nest.open();
        QVERIFY2(nest.wrong().isEmpty(),
            qPrintable(QString("seed %1: %2").arg(seed).arg(nest.wrong().join(", "))));
        QCOMPARE(nest.returned(), kDepth);
        QVERIFY(window.isEnabled());
        const QList<VemoMask *> masks = window.findChildren<VemoMask *>();
        for (const VemoMask *mask : masks)
            QVERIFY2(!mask->isVisible(), qPrintable(QString("seed %1").arg(seed)));
    }
}

VEMO_TEST_MAIN(SheetOrdersTest)
#include "tst_sheetorders.moc"
