// SPDX-License-Identifier: MIT
#pragma once

#include "help/testcertificates.h"
#include "help/testserver.h"

/// What a knowledge base does, and what the reader gets to see.
struct ServerRow
{
    const char *name = nullptr;
    Answer answer;
    QString text; ///< Of the page; null where the local page is shown.
    TestCertificates::Kind certificate = TestCertificates::GOOD;
    const char *warning = nullptr; ///< How the one warning begins.
};

/// Answers that come within a moment.
QVector<ServerRow> statusRows();
QVector<ServerRow> lengthRows();
QVector<ServerRow> headRows();
QVector<ServerRow> bodyRows();
QVector<ServerRow> certificateRows();
/// Answers that never come to an end.
QVector<ServerRow> endlessRows();
