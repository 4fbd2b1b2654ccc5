// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"

#include <vemo/componentstrings.h>
#include <vemo/messageshortcuts.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomask.h>
#include <vemo/vemosheet.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kCycles = 20;
constexpr int kManyMasks = 1000;
const QString kCover = QStringLiteral("cover");

QString question()
{
    return QStringLiteral("Delete the folder \"Reports\" and the 1,204 files in it?");
}

void fill(QWidget *window)
{
    auto *column = new QVBoxLayout(window);
    auto *table = new QTableWidget(40, 6);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int i = 0; i < table->columnCount(); ++i)
            table->setItem(row, i, new QTableWidgetItem(QStringLiteral("cell %1").arg(row * i)));
    }
    column->addWidget(table);
}

std::shared_ptr<QWidget> shownWindow(bool isFilled)
{
    auto window = std::make_shared<QWidget>();
    window->resize(800, 600);
    if (isFilled)
        fill(window.get());
    window->show();
    QApplication::processEvents();
    return window;
}

void deleteMasks(const QWidget *window)
{
    qDeleteAll(window->findChildren<VemoMask *>());
}

/// Presses Return as soon as a message has been painted for the first time.
class PromptUser : public QObject
{
public:
    PromptUser() { qApp->installEventFilter(this); }

    bool hasSeen() const { return m_message; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isMessage = event->type() == QEvent::Paint && !m_message
            && (qobject_cast<VemoSheet *>(watched) || qobject_cast<QMessageBox *>(watched)
                || watched->objectName() == kCover);
        if (isMessage) {
            m_message = static_cast<QWidget *>(watched);
            QTimer::singleShot(0, this, [this] { press(); });
        }
        return false;
    }

private:
    void press() const
    {
        QWidget *window = m_message->window();
        QWidget *focus = window->focusWidget() ? window->focusWidget() : window;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(focus, &press);
    }

    QWidget *m_message = nullptr;
};

/// Open, first paint, key, window restored.
template <typename Ask> qint64 cycles(Ask ask)
{
    qint64 sum = 0;
    for (int i = 0; i < kCycles; ++i) {
        const PromptUser user;
        sum += ask(user);
        QApplication::processEvents();
    }
    return sum;
}

int askInBox(QWidget *window)
{
    QMessageBox box(window);
    box.setIcon(QMessageBox::Question);
    box.setText(question());
    box.setStyleSheet(getStyleSheet("component.confirm_message_box"));
    const auto setUp = [&](QMessageBox::StandardButton which, const char *caption,
                           const char *key) {
        QPushButton *button = box.addButton(which);
        button->setText(ComponentStrings::getInstance().getString(QLatin1String(caption)));
        button->setStyleSheet(getStyleSheet(key));
    };
    setUp(QMessageBox::Cancel, "cancel", "component.cancel_button");
    setUp(QMessageBox::Apply, "ok", "component.apply_button");
    box.setDefaultButton(QMessageBox::Apply);
    return box.exec();
}

int showCover(QWidget *cover, const PromptUser &user)
{
    cover->show();
    while (!user.hasSeen())
        QApplication::processEvents();
    cover->hide();
    return QDialogButtonBox::Apply;
}

std::shared_ptr<QWidget> readyCover(QWidget *window)
{
    std::shared_ptr<QWidget> cover(new QWidget(window), [](QWidget *) { /* The window's. */ });
    cover->setObjectName(kCover);
    QPalette palette = cover->palette();
    palette.setBrush(QPalette::All, QPalette::Window, QColor(0, 0, 0, 20));
    cover->setPalette(palette);
    cover->setAutoFillBackground(true);
    cover->resize(window->size());
    cover->hide();
    return cover;
}

void askOnSheet(bench::Case &c, const std::shared_ptr<QWidget> &window)
{
    c.items(kCycles);
    c.ours(
        [window] {
            return cycles(
                [&](const auto &) { return showConfirmMsg({}, question(), window.get()); });
        },
        [window] { deleteMasks(window.get()); });
}

void overEmptyWindow(bench::Case &c)
{
    bench::useTheme();
    const auto window = shownWindow(false);
    c.goal(1.0, 0.8);
    c.goalOnX11(0.6, 0.5);
    c.reference(QStringLiteral("styled QMessageBox"),
        [window] { return cycles([&](const auto &) { return askInBox(window.get()); }); });
    const auto cover = readyCover(window.get());
    c.limit(QStringLiteral("ready cover"), [cover] {
        return cycles([&](const PromptUser &user) { return showCover(cover.get(), user); });
    });
    askOnSheet(c, window);
}

void overFilledWindow(bench::Case &c)
{
    bench::useTheme();
    const auto window = shownWindow(true);
    c.goal(1.6, 1.4);
    const auto cover = readyCover(window.get());
    c.reference(QStringLiteral("ready cover shown and hidden"), [cover, window] {
        return cycles([&](const PromptUser &user) { return showCover(cover.get(), user); });
    });
    askOnSheet(c, window);
}

void leaveMasks(QWidget *window, int count)
{
    for (int i = 0; i < count; ++i) {
        const PromptUser user;
        showConfirmMsg({}, question(), window);
    }
}

void memory(bench::Case &c)
{
    bench::useTheme();
    const auto window = shownWindow(false);
    leaveMasks(window.get(), 1);
    c.bytes();
    c.items(kManyMasks);
    c.goal(3000);
    c.ours(
        [window] {
            leaveMasks(window.get(), kManyMasks);
            return qint64(window->findChildren<VemoMask *>().size());
        },
        [window] { deleteMasks(window.get()); });
    c.check([window] { return window->findChildren<VemoMask *>().size() == kManyMasks; });
}

qint64 resizeAndBack(QWidget *window)
{
    window->resize(790, 590);
    QApplication::processEvents();
    window->resize(800, 600);
    QApplication::processEvents();
    return window->width();
}

void resizing(bench::Case &c)
{
    bench::useTheme();
    const auto plain = shownWindow(true);
    const auto masked = shownWindow(true);
    leaveMasks(masked.get(), kManyMasks);
    c.goal(1.4, 1.2);
    c.items(2);
    c.reference(QStringLiteral("no mask"), [plain] { return resizeAndBack(plain.get()); });
    c.ours([masked] { return resizeAndBack(masked.get()); });
}

} // namespace

void bench::messageCases(Cases &cases)
{
    cases.add(QStringLiteral("message.cycle/empty window"), overEmptyWindow);
    cases.add(QStringLiteral("message.cycle/filled window"), overFilledWindow);
    cases.add(QStringLiteral("message.memory"), memory);
    cases.add(QStringLiteral("message.resize/1000"), resizing);
}
