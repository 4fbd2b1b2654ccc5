// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Whether the library is instrumented, which makes it up to ten times slower. The test programs
/// themselves never are.
inline bool underSanitizers()
{
    return qEnvironmentVariableIsSet("VEMO_SANITIZERS");
}
