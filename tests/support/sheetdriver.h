// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemosheet.h>

#include <QPointer>
#include <QTimer>

#include <functional>
#include <vector>

/// Acts while sheets are open, although each runs an event loop of its own. Ends the sheets if a
/// check in an act fails, because the test would wait for them forever.
///
///     SheetDriver driver([&] { QTest::keyClick(&window, Qt::Key_Return); });
///     QCOMPARE(sheet.exec(), int(QDialogButtonBox::Ok));
///     QVERIFY(driver.hasActed());
class SheetDriver : public QObject
{
public:
    using Act = std::function<void(VemoSheet *)>;

    /// Calls act as soon as an event loop runs.
    explicit SheetDriver(const std::function<void()> &act);
    /// Calls one act after another, each as soon as another sheet than before is on top of window.
    /// Fails the test if more sheets come than acts. If name is given, only sheets of that name
    /// count.
    SheetDriver(QWidget *window, std::vector<Act> acts, const char *name = nullptr);

    /// Whether all acts have been called.
    bool hasActed() const { return m_next == m_acts.size(); }
    /// The same, and no sheet is open over the window, if that still exists.
    bool isDone() const;

private:
    void look();
    void call(VemoSheet *sheet);

    std::vector<Act> m_acts;
    QPointer<QWidget> m_window;
    QString m_name;
    QTimer m_timer;
    QPointer<VemoSheet> m_last;
    size_t m_next = 0;
};

/// The topmost visible sheet over window; null if there is none.
VemoSheet *sheetOver(const QWidget *window);
