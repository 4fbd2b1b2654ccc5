// SPDX-License-Identifier: MIT
#include "help/pagegenerator.h"
#include "help/safepage_p.h"
#include "support/vemotest.h"

#include <QTextDocument>
#include <QTextTable>

#include <ctime>

/// Shows generated pages: 2,000 of them, or VEMO_PAGES, from the seed VEMO_SEED on.
class tst_hostilepages : public VemoTest
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

} // namespace

void tst_hostilepages::noGeneratedPageHoldsTheWindowUp()
{
    const int count =
        qEnvironmentVariableIsSet("VEMO_PAGES") ? qEnvironmentVariableIntValue("VEMO_PAGES") : 2000;
    const int firstSeed = qEnvironmentVariableIntValue("VEMO_SEED");
    // Ten times what a megabyte of text takes; none of the pages is as large.
    const double plain = show("<html>" + QStringLiteral("word ").repeated(200000)).milliseconds;
    Show worst;
    int worstSeed = 0;
    int shown = 0;
    for (int seed = firstSeed; seed < firstSeed + count; ++seed) {
        const Show each = show(PageGenerator(quint32(seed)).page());
        const QByteArray name = "seed " + QByteArray::number(seed) + ": "
            + QByteArray::number(each.milliseconds) + " ms, plain " + QByteArray::number(plain);
        QVERIFY2(each.milliseconds < 10 * plain, name);
        QVERIFY2(each.tables <= 13, name); // One of them may be the text engine's own.
        messages.take(); // Of colours that are none.
        shown += each.isShown;
        if (each.milliseconds > worst.milliseconds) {
            worst = each;
            worstSeed = seed;
        }
    }
    qInfo("%d of %d pages shown; the longest, seed %d, took %.0f ms, plain text %.0f ms", shown,
        count, worstSeed, worst.milliseconds, plain);
    QVERIFY(shown > count / 4); // Most are judged by what they cost, not refused.
}

VEMO_TEST_MAIN(tst_hostilepages)
#include "tst_hostilepages.moc"
