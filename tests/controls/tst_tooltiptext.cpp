// SPDX-License-Identifier: MIT
#include <vemo/tooltiptext.h>

#include "support/vemotest.h"

#include <QTextDocument>
#include <QTextDocumentFragment>

class ToolTipTextTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void escapesAndKeepsLines_data();
    void escapesAndKeepsLines();
    void isTakenForRichTextAndReadsAsThePlainText();
};

void ToolTipTextTest::escapesAndKeepsLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inside");
    addRow("empty", "", "");
    addRow("null", QString(), "");
    addRow("plain", "a name.txt", "a name.txt");
    addRow("special characters", "<b>&\"x\"</b>", "&lt;b&gt;&amp;&quot;x&quot;&lt;/b&gt;");
    addRow("apostrophe stays", "it's", "it's");
    addRow("entity is escaped again", "&lt;", "&amp;lt;");
    addRow("one line break", "a\nb", "a<br>b");
    addRow("two line breaks", "a\n\nb", "a<br><br>b");
    addRow("line break at both ends", "\na\n", "<br>a<br>");
    addRow("written line break is text", "<br>", "&lt;br&gt;");
    addRow("carriage return stays", "a\r\nb", "a\r<br>b");
    addRow("runs of blanks", "a   b\t c", "a   b\t c");
    addRow("other scripts", QString::fromUtf8("Größe 文件"), QString::fromUtf8("Größe 文件"));
}

void ToolTipTextTest::escapesAndKeepsLines()
{
    QFETCH(QString, text);
    QFETCH(QString, inside);
    QCOMPARE(getHtmlEscapedStringForToolTip(text),
        QString("<p style='white-space:pre'>" + inside + "</p>"));
}

void ToolTipTextTest::isTakenForRichTextAndReadsAsThePlainText()
{
    const QString text = "1 < 2 && \"x\"\n\nlast   line";
    const QString html = getHtmlEscapedStringForToolTip(text);
    QVERIFY(Qt::mightBeRichText(html));
    QCOMPARE(QTextDocumentFragment::fromHtml(html).toPlainText(), text);
}

VEMO_TEST_MAIN(ToolTipTextTest)
#include "tst_tooltiptext.moc"
