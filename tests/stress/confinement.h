// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// From now on this process can change nothing on the disk outside the folder. Returns false, and
/// changes nothing, if the system cannot do that.
bool confineWritesTo(const QString &folder);
