// SPDX-License-Identifier: MIT
// Pages of the gallery, used with real keys.
#include "gallery/commandline.h"
#include "gallery/page.h"
#include "gallery/pagelist.h"

#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemosheet.h>
#include <vemo/vemotreewidget.h>

#include <QLineEdit>

class GalleryKeysTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void tabEndsTheRenamingForGood();
    void ownSheetKeepsTheFocusAndAnswersEscape();
};

namespace {

struct ActivePage : Page
{
    explicit ActivePage(const QString &title) : Page(title, kOptions)
    {
        pages()[static_cast<size_t>(pageIndex(title))].build(*this);
        show();
    }

    /// The part that satisfies isIt.
    template <typename Widget, typename Predicate> Widget *part(Predicate isIt) const
    {
        for (Widget *widget : findChildren<Widget *>()) {
            if (isIt(widget))
                return widget;
        }
        return nullptr;
    }

    static const Options kOptions;
};

const Options ActivePage::kOptions {};

} // namespace

void GalleryKeysTest::tabEndsTheRenamingForGood()
{
    ActivePage page("Tree");
    QVERIFY(showActive(&page));
    auto *tree = page.part<VemoTreeWidget>(
        [](const QWidget *each) { return each->accessibleName() == "A folder being renamed"; });
    QVERIFY(tree);
    const QPointer<QLineEdit> editor = tree->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), editor.data());

    pressRealKey(Qt::Key_Tab);
    QTRY_VERIFY(!editor);
    QTRY_COMPARE(QApplication::focusWidget(), tree);
    pressRealKey(Qt::Key_Tab);
    QTRY_VERIFY(QApplication::focusWidget() != tree);
    pressRealKey(Qt::Key_Tab, Qt::ShiftModifier);
    QTRY_COMPARE(QApplication::focusWidget(), tree);
    QVERIFY(!tree->findChild<QLineEdit *>());
}

void GalleryKeysTest::ownSheetKeepsTheFocusAndAnswersEscape()
{
    ActivePage page("Sheets");
    QVERIFY(showActive(&page));
    auto *show = page.part<VemoButton>(
        [](const VemoButton *each) { return each->text() == "Show a sheet of our own"; });
    QVERIFY(show);
    show->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), show);

    pressRealKey(Qt::Key_Space);
    QTRY_VERIFY(page.findChild<VemoSheet *>());
    const QPointer<VemoSheet> sheet = page.findChild<VemoSheet *>();
    const auto isInSheet = [&] {
        const QWidget *focus = QApplication::focusWidget();
        return focus && (focus == sheet || sheet->isAncestorOf(focus));
    };
    QTRY_VERIFY(isInSheet());
    // Escape closes the sheet only while the focus is in it.
    pressRealKey(Qt::Key_Tab);
    pressRealKey(Qt::Key_Tab, Qt::ShiftModifier);
    pressRealKey(Qt::Key_Tab, Qt::ShiftModifier);
    pressRealKey(Qt::Key_Escape);
    QTRY_VERIFY(!sheet);
    QTRY_COMPARE(QApplication::focusWidget(), show);
}

VEMO_TEST_MAIN(GalleryKeysTest)
#include "tst_gallerykeys.moc"
