// SPDX-License-Identifier: MIT
#pragma once

#include "help/testcertificates.h"
#include "help/testserver.h"

/// The behaviour of a knowledge base, and the expected result.
struct ServerRow
{
    const char *name = nullptr;
    Answer answer;
    QString text; ///< Of the page; null if the local page is shown.
    TestCertificates::Kind certificate = TestCertificates::GOOD;
    const char *warning = nullptr; ///< The start of the only warning.
};

/// Answers that arrive quickly.
QVector<ServerRow> statusRows();
QVector<ServerRow> lengthRows();
QVector<ServerRow> headRows();
QVector<ServerRow> bodyRows();
QVector<ServerRow> certificateRows();
/// Answers that never end.
QVector<ServerRow> endlessRows();
