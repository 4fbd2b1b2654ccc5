// SPDX-License-Identifier: MIT
#pragma once

#include "support/childprocess.h"
#include "support/recordedmessages.h"

#include <QApplication>
#include <QtTest>

/// Base of every test class: a warning that the test function didn't claim with messages.take()
/// fails it, and so does a window that it left behind. A test with an init() or cleanup() of its
/// own calls these from it.
class VemoTest : public QObject
{
    Q_OBJECT

protected:
    RecordedMessages messages;

protected Q_SLOTS:
    void init();
    void cleanup();
};

/// The colour that widget shows at a point in its own coordinates.
QColor pixelAt(QWidget *widget, const QPoint &point);

/// Fills in the test environment where the program was started by hand.
void setTestEnvironment();

using ChildFunction = int (*)(const QString &scenario);

/// The offscreen platform never frees its screens: reachable they are no leak.
void keepScreensReachable();

template <typename TestClass> int runTests(int argc, char **argv, ChildFunction child)
{
    setTestEnvironment();
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    keepScreensReachable();
    if (!childScenario().isEmpty())
        return child ? child(childScenario()) : -1;
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

#define VEMO_TEST_MAIN(TestClass)                                                                  \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return runTests<TestClass>(argc, argv, nullptr);                                           \
    }

/// childFunction, an int(const QString &scenario), runs in the processes that runChild() starts.
#define VEMO_TEST_MAIN_WITH_CHILD(TestClass, childFunction)                                        \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return runTests<TestClass>(argc, argv, childFunction);                                     \
    }
