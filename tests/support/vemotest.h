// SPDX-License-Identifier: MIT
#pragma once

#include "support/childprocess.h"
#include "support/recordedmessages.h"

#include <QApplication>
#include <QtTest>

/// Base of every test class. A test function fails if it logs a warning that it does not claim with
/// messages.take(), or leaves a window open. Tests with their own init() or cleanup() must call
/// those of this class.
class VemoTest : public QObject
{
    Q_OBJECT

protected:
    RecordedMessages messages;

protected Q_SLOTS:
    void init();
    void cleanup();
};

/// The colour of widget at a point in its own coordinates.
QColor pixelAt(QWidget *widget, const QPoint &point);

/// Adds a data row with a value for each column, on one line, which the layout of << would not
/// keep.
template <typename... Values> void addRow(const QByteArray &name, const Values &...values)
{
    QTestData &row = QTest::newRow(name.constData());
    (row << ... << values);
}

/// Completes the test environment if the program was started manually.
void setTestEnvironment();

using ChildFunction = int (*)(const QString &scenario);

/// The offscreen platform never frees its screens, which are not reported as leaks if reachable.
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

/// childFunction, an int(const QString &scenario), is run in the processes started by runChild().
#define VEMO_TEST_MAIN_WITH_CHILD(TestClass, childFunction)                                        \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return runTests<TestClass>(argc, argv, childFunction);                                     \
    }
