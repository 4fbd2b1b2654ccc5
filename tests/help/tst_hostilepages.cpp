// SPDX-License-Identifier: MIT
#include "help/pagegenerator.h"
#include "help/safepage_p.h"
#include "support/vemotest.h"

#include <QTextDocument>
#include <QTextTable>

#include <ctime>

/// Shows generated pages: 2,000 of them, or VEMO_PAGES, from the seed VEMO_SEED on.
class HostilePagesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void noGeneratedPageHoldsTheWindowUp();
};

namespace {

class Document : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl &) override { return QPixmap(16, 16); }
};

double now()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * 1e3 + time.tv_nsec / 1e6;
}

int tableDepth(const QTextFrame *frame)
{
    int depth = 0;
    const QList<QTextFrame *> children = frame->childFrames();
    for (const QTextFrame *child : children)
        depth = qMax(depth, tableDepth(child));
    return depth + (qobject_cast<const QTextTable *>(frame) ? 1 : 0);
}

struct Show
{
    double milliseconds = 0; // Of the processor.
    int tables = 0; // Inside each other.
    bool isShown = false;
};

Show show(const QString &html)
{
    Show result;
    const double start = now();
    const SafePage page = safePage(html, true);
    result.isShown = page.verdict == SafePage::FINE;
    if (result.isShown) {
        Document document;
        document.setHtml(page.html);
        document.setTextWidth(700);
        document.size();
        result.tables = tableDepth(document.rootFrame());
    }
    result.milliseconds = now() - start;
    return result;
}

/// What a page may take, by what plain text of the same size takes. A small page may take what a
/// larger one may, as the limits of tags and tables hold whatever the size.
class Budget
{
public:
    Budget() : m_per_letter(plain(kMebibyte) / kMebibyte) { }

    double of(const QString &html) const
    {
        return kFactor * m_per_letter * qMax(html.size(), kMinSize);
    }
    /// Another process may have disturbed the first look: again, each thing at its best.
    bool isKeptAfterAll(const QString &html)
    {
        constexpr int kLooks = 5;
        double taken = show(html).milliseconds;
        for (int i = 0; i < kLooks; ++i) {
            taken = qMin(taken, show(html).milliseconds);
            m_per_letter = qMax(m_per_letter, plain(kMebibyte) / kMebibyte);
        }
        return taken <= of(html);
    }

private:
    static double plain(int size)
    {
        return show("<html>" + QStringLiteral("word ").repeated(size / 5)).milliseconds;
    }

    static constexpr int kMebibyte = 1024 * 1024;
    static constexpr int kFactor = 10;
    static constexpr int kMinSize = kMebibyte / 2;

    double m_per_letter;
};

} // namespace

void HostilePagesTest::noGeneratedPageHoldsTheWindowUp()
{
    const int count =
        qEnvironmentVariableIsSet("VEMO_PAGES") ? qEnvironmentVariableIntValue("VEMO_PAGES") : 2000;
    const int firstSeed = qEnvironmentVariableIntValue("VEMO_SEED");
    Budget budget;
    double worst = 0; // Of its budget.
    int worstSeed = 0;
    int shown = 0;
    for (int seed = firstSeed; seed < firstSeed + count; ++seed) {
        const QString html = PageGenerator(quint32(seed)).page();
        const Show each = show(html);
        const QByteArray name = QStringLiteral("seed %1, %2 letters: %3 ms of %4")
                                    .arg(seed)
                                    .arg(html.size())
                                    .arg(each.milliseconds)
                                    .arg(budget.of(html))
                                    .toLatin1();
        QVERIFY2(each.milliseconds <= budget.of(html) || budget.isKeptAfterAll(html), name);
        QVERIFY2(each.tables <= 13, name); // One of them may be the text engine's own.
        messages.take(); // Of colours that are none.
        shown += each.isShown;
        if (each.milliseconds > worst * budget.of(html)) {
            worst = each.milliseconds / budget.of(html);
            worstSeed = seed;
        }
    }
    qInfo("%d of %d pages shown; seed %d took the most, %.0f %% of its budget", shown, count,
        worstSeed, 100 * worst);
    QVERIFY(shown > count / 4); // Most are judged by what they cost, not refused.
}

VEMO_TEST_MAIN(HostilePagesTest)
#include "tst_hostilepages.moc"
