// SPDX-License-Identifier: MIT
// Every public widget is created, shown, used and deleted many times: the memory it leaves must not
// be more than what the nearest stock widget leaves. VEMO_SOAK_CYCLES sets how often.
#include "stress/widgetkinds.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QPixmapCache>

#include <dlfcn.h>
#include <malloc.h>

namespace {

constexpr qint64 kNoise = 64 * 1024; // Bytes, for caches of Qt that fill late.

qint64 bytesInUse()
{
    // AddressSanitizer replaces the allocator, so that mallinfo2() only returns zeros.
    using AllocatedBytes = size_t (*)();
    static const auto sanitized = reinterpret_cast<AllocatedBytes>(
        dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes"));
    if (sanitized)
        return qint64(sanitized());
    const auto info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

void use(QWidget *widget)
{
    const QPointF middle = widget->rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, middle, Qt::LeftButton, Qt::LeftButton, {});
    QMouseEvent release(QEvent::MouseButtonRelease, middle, Qt::LeftButton, {}, {});
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Down, {});
    QKeyEvent typing(QEvent::KeyPress, Qt::Key_1, {}, QStringLiteral("1"));
    for (QEvent *event : {static_cast<QEvent *>(&press), static_cast<QEvent *>(&release),
             static_cast<QEvent *>(&key), static_cast<QEvent *>(&typing)})
        QApplication::sendEvent(widget, event);
    widget->setEnabled(false);
    widget->setEnabled(true);
    widget->setLayoutDirection(Qt::RightToLeft);
    widget->resize(widget->width() + 20, widget->height() + 5);
}

void liveOnce(const std::function<QWidget *(QWidget *)> &make)
{
    QWidget window;
    window.resize(500, 300);
    QWidget *widget = make(&window);
    window.show();
    widget->show();
    QCoreApplication::processEvents();
    use(widget);
    QCoreApplication::processEvents();
}

/// The style sheet of what make makes: Qt keeps something for each widget that has one.
QString styleOf(const std::function<QWidget *(QWidget *)> &make)
{
    QWidget window;
    return make(&window)->styleSheet();
}

/// The growth in bytes after the given cycles, once everything that is kept deliberately exists.
qint64 growthOf(const std::function<QWidget *(QWidget *)> &make, int cycles)
{
    const int warmUp = 50 + cycles / 10;
    for (int i = 0; i < warmUp; ++i)
        liveOnce(make);
    const qint64 before = bytesInUse();
    for (int i = 0; i < cycles; ++i)
        liveOnce(make);
    return bytesInUse() - before;
}

} // namespace

class SoakTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void measuresTheHeap();
    void growsNoMoreThanAStockWidget_data();
    void growsNoMoreThanAStockWidget();
};

void SoakTest::initTestCase()
{
    startDefaultTheme();
    // Otherwise it fills up to its limit while we measure.
    QPixmapCache::setCacheLimit(0);
    // A menu that a click opens would wait for the user.
    auto *closing = new QTimer(this);
    connect(closing, &QTimer::timeout, this, [] {
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
    });
    closing->start(0);
}

void SoakTest::measuresTheHeap()
{
    constexpr int kBytes = 1024 * 1024;
    const qint64 before = bytesInUse();
    auto bytes = std::make_unique<QByteArray>(kBytes, 'x');
    QVERIFY(bytesInUse() - before >= kBytes);
    bytes.reset();
    QVERIFY(bytesInUse() - before < kBytes);
}

void SoakTest::growsNoMoreThanAStockWidget_data()
{
    QTest::addColumn<int>("kind");
    const std::vector<WidgetKind> &kinds = widgetKinds();
    for (size_t i = 0; i < kinds.size(); ++i)
        QTest::newRow(kinds[i].name) << int(i);
}

void SoakTest::growsNoMoreThanAStockWidget()
{
    QFETCH(int, kind);
    const WidgetKind &widgets = widgetKinds()[size_t(kind)];
    const int cycles = stressNumber("VEMO_SOAK_CYCLES", 50);
    const QString style = styleOf(widgets.make);
    const auto makeStock = [&](QWidget *parent) {
        QWidget *widget = widgets.makeStock(parent);
        widget->setStyleSheet(style);
        return widget;
    };
    const qint64 stock = growthOf(makeStock, cycles);
    const qint64 ours = growthOf(widgets.make, cycles);
    const QString figures = QString("%1 bytes, stock %2").arg(ours).arg(stock);
    qInfo("%d cycles: %s", cycles, qPrintable(figures));
    QVERIFY2(ours <= qMax<qint64>(stock, 0) + kNoise, qPrintable(figures));
}

VEMO_TEST_MAIN(SoakTest)
#include "tst_soak.moc"
